#include "app/DefaultName.h"

#include "toolkit/Translatable.h"

#include <string>

namespace lumbra {

namespace {

constexpr std::string_view NAMES[] = {LUMBRA_TEXT("System", "Zone %1"), LUMBRA_TEXT("System", "Output %1"),
                                      LUMBRA_TEXT("System", "Group %1"), LUMBRA_TEXT("System", "Scene %1"),
                                      LUMBRA_TEXT("System", "Source %1")};

} // namespace

std::optional<Text> defaultName(std::string_view name) {
    for (const auto pattern : NAMES) {
        const auto words = pattern.substr(0, pattern.size() - 2);
        if (!name.starts_with(words))
            continue;
        const auto number = name.substr(words.size());
        if (!number.empty() && number.size() <= 2 &&
            number.find_first_not_of("0123456789") == std::string_view::npos)
            return Text{pattern, {std::string(number)}};
    }
    return std::nullopt;
}

} // namespace lumbra

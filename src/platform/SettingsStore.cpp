#include "platform/SettingsStore.h"

#include <charconv>

namespace lumbra {

std::optional<std::string> SettingsStore::text(std::string_view key) const {
    const auto stored = value(key);
    if (!stored)
        return std::nullopt;
    if (const auto* text = std::get_if<std::string>(&*stored))
        return *text;
    if (const auto* number = std::get_if<std::int64_t>(&*stored))
        return std::to_string(*number);
    return std::nullopt;
}

std::int64_t SettingsStore::integer(std::string_view key) const {
    const auto stored = value(key);
    if (!stored)
        return 0;
    if (const auto* number = std::get_if<std::int64_t>(&*stored))
        return *number;
    if (const auto* flag = std::get_if<bool>(&*stored))
        return *flag ? 1 : 0;
    const auto& text = std::get<std::string>(*stored);
    std::int64_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size() ? number : 0;
}

bool SettingsStore::flag(std::string_view key) const {
    const auto stored = value(key);
    if (!stored)
        return false;
    if (const auto* flag = std::get_if<bool>(&*stored))
        return *flag;
    if (const auto* number = std::get_if<std::int64_t>(&*stored))
        return *number != 0;
    return std::get<std::string>(*stored) == "true";
}

} // namespace lumbra

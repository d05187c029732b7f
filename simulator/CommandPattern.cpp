#include "simulator/CommandPattern.h"

#include <charconv>
#include <system_error>

namespace lumbra::sim {

namespace {

/// Removes a number from the start of `text` and returns it.
std::optional<int> takeNumber(std::string_view& text) {
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc())
        return std::nullopt;
    std::string_view digits = text.substr(0, static_cast<std::size_t>(end - text.data()));
    text.remove_prefix(digits.size());
    const bool negative = digits.front() == '-';
    if (negative)
        digits.remove_prefix(1);
    if (digits.front() == '0' && (digits.size() > 1 || negative))
        return std::nullopt;
    return number;
}

} // namespace

std::optional<CommandPattern::Numbers> CommandPattern::match(std::string_view body) const {
    Numbers numbers{};
    std::size_t count = 0;
    for (const char c : text) {
        if (c == '%') {
            const std::optional<int> number = takeNumber(body);
            if (!number || !ranges[count].holds(*number))
                return std::nullopt;
            numbers[count++] = *number;
        } else if (!body.empty() && body.front() == c) {
            body.remove_prefix(1);
        } else {
            return std::nullopt;
        }
    }
    if (!body.empty())
        return std::nullopt;
    return numbers;
}

} // namespace lumbra::sim

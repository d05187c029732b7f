#include "script/Numbers.h"

#include <charconv>
#include <cmath>
#include <locale>
#include <sstream>
#include <system_error>

namespace lumbra::script {

namespace {

/// Parses all of `text`, which may begin with a plus sign.
template <class Number>
std::errc read(std::string_view text, Number& number) {
    if (text.size() > 1 && text[0] == '+' && text[1] != '-')
        text.remove_prefix(1);
    const auto* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    return stop != end ? std::errc::invalid_argument : error;
}

} // namespace

std::optional<std::int64_t> parseWhole(std::string_view text) {
    std::int64_t number = 0;
    return read(text, number) == std::errc() ? std::optional(number) : std::nullopt;
}

std::optional<float> parseLevel(std::string_view text) {
    float level = 0;
    const auto error = read(text, level);
    if (error == std::errc::result_out_of_range) {
        // A stream knows which end it is out of: it gives the largest float of the sign, or zero.
        std::istringstream stream{std::string(text)};
        stream.imbue(std::locale::classic());
        stream >> level;
    } else if (error != std::errc() || !std::isfinite(level)) {
        return std::nullopt;
    }
    return level;
}

std::optional<std::chrono::nanoseconds> parseSeconds(std::string_view text) {
    double seconds = 0;
    if (read(text, seconds) != std::errc() || !(seconds >= 0 && seconds <= 1e9))
        return std::nullopt;
    return std::chrono::ceil<std::chrono::nanoseconds>(std::chrono::duration<double>(seconds));
}

} // namespace lumbra::script

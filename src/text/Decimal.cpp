#include "text/Decimal.h"

#include <array>
#include <charconv>

namespace lumbra {

std::string decimalOf(float value) {
    std::array<char, 32> buffer{};
    const auto [end, error] = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
    static_cast<void>(error);
    std::string text(buffer.data(), end);
    if (text.find_first_of(".en") == std::string::npos)
        text += ".0";
    return text;
}

std::string secondsOf(std::chrono::microseconds time) {
    constexpr std::chrono::seconds SECOND{1};
    auto decimals = std::to_string((SECOND + time % SECOND).count());
    decimals.front() = '.'; // the 1 keeps their zeros
    return std::to_string(time / SECOND) + decimals;
}

} // namespace lumbra

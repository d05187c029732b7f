#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace lumbra::console {

/// A whole decimal number, with a sign or without; nothing where `text` is none or does not fit.
std::optional<std::int64_t> parseWhole(std::string_view text);

/// A finite decimal number as single precision, the nearest value; one that is too large for that becomes the
/// largest of its sign. Nothing where `text` is none.
std::optional<float> parseLevel(std::string_view text);

/// A time of 0 s to 10^9 s; nothing where `text` is none.
std::optional<std::chrono::nanoseconds> parseSeconds(std::string_view text);

/// The shortest decimal that reads back as the same float, always with a decimal point or an exponent, so
/// that it is seen to be no whole number: "-40.0", "1301.03".
std::string decimalOf(float value);

} // namespace lumbra::console

#pragma once

#include <chrono>
#include <string>

namespace lumbra {

/// The shortest decimal that parses to the same float, always with a decimal point or an exponent, so that it
/// does not look like an integer: "-40.0", "1301.03". Any thread.
std::string decimalOf(float value);

/// A time that is not negative, in seconds with six decimals: "0.010813". Any thread.
std::string secondsOf(std::chrono::microseconds time);

} // namespace lumbra

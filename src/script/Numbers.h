#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string_view>

namespace lumbra::script {

/// Parses a decimal integer with an optional sign; nothing if `text` is none or does not fit.
std::optional<std::int64_t> parseWhole(std::string_view text);

/// Parses a finite decimal number and rounds it to the nearest float; one that is too large becomes the
/// largest float of its sign, however large it is. Nothing if `text` is no number.
std::optional<float> parseLevel(std::string_view text);

/// Parses a number of seconds from 0 to 10^9; nothing if `text` is none.
std::optional<std::chrono::nanoseconds> parseSeconds(std::string_view text);

} // namespace lumbra::script

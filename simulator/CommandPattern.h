#pragma once

#include "simulator/UnitState.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

namespace lumbra::sim {

/// The pattern of a command's body: its text with "%" for each number, and the ranges of the numbers.
///
/// Matching is strict, to expose mistakes of clients: the whole body must match, and numbers are plain
/// decimal ("-" allowed, no leading zeros, no "-0", no "+") and in range.
struct CommandPattern {
    static constexpr std::size_t MOST_NUMBERS = 4;
    using Numbers = std::array<int, MOST_NUMBERS>;

    std::string_view text;
    std::array<Range, MOST_NUMBERS> ranges;

    /// Returns the numbers of `body` in order; nothing if it does not match.
    std::optional<Numbers> match(std::string_view body) const;
};

} // namespace lumbra::sim

#pragma once

#include "simulator/UnitState.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

namespace lumbra::sim {

/// The form of a command's body: its text with "%" for each number, and the range of each number in turn.
///
/// Matching is strict, so that a client's slips show: the whole body, numbers in plain decimal ("-" allowed,
/// no leading zeros, no "-0", no "+") and in range.
struct CommandPattern {
    static constexpr std::size_t MOST_NUMBERS = 4;
    using Numbers = std::array<int, MOST_NUMBERS>;

    std::string_view text;
    std::array<Range, MOST_NUMBERS> ranges;

    /// The numbers of `body`, in order; nothing when it does not have this form.
    std::optional<Numbers> match(std::string_view body) const;
};

} // namespace lumbra::sim

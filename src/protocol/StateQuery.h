#pragma once

#include <compare>
#include <optional>
#include <string_view>

namespace lumbra {

/// A state query, as its command and the report that ends its answer name it.
struct StateQuery {
    static constexpr int COUNT = 5; ///< of the numbers

    int unit;   ///< the unit that is asked, one digit
    int number; ///< the screen's QUERY_NUMBER, 0 to 4

    auto operator<=>(const StateQuery&) const = default; // NOLINT(modernize-use-nullptr): there is none
};

/// The query that a whole command is; nothing if it is another command. Any thread.
std::optional<StateQuery> readQuery(std::string_view command);

/// The query whose answer a report text (the unit's bytes) ends; nothing if it is another report. Any thread.
std::optional<StateQuery> readEndOfState(std::string_view report);

} // namespace lumbra

#pragma once

#include "protocol/ItemReports.h"
#include "protocol/ReportParser.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace lumbra::overrides {

/// The override is on or off.
struct State {
    int item; ///< 0-based, not range-checked
    bool on;
};

/// What the Override screen reads: an override's state, and the end of the unit's answer.
using Report = std::variant<State, reports::EndOfState>;

/// Reads a report text (the unit's bytes); nothing where it is no report of the Override screen. Any thread.
std::optional<Parsed<Report>> parse(std::string_view text);

/// The command body that turns an override on where it is off, and off where it is on. 0-based.
std::string operate(std::int64_t override_);

} // namespace lumbra::overrides

#pragma once

#include "protocol/ItemReports.h"
#include "protocol/ReportParser.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace lumbra::overrides {

/// The state of an override.
struct State {
    int item; ///< 0-based, not range-checked
    bool on;
};

/// The reports that the Override screen reads: the state of an override, and the end of the answer.
using Report = std::variant<State, reports::EndOfState>;

/// Parses a report text (the unit's bytes). Nothing if it is no report of the Override screen. Any thread.
std::optional<Parsed<Report>> parse(std::string_view text);

/// Returns the command body that toggles an override. `override_` is 0-based, 0 to 9, and not checked. Any
/// thread.
std::string operate(std::int64_t override_);

} // namespace lumbra::overrides

#pragma once

#include "protocol/ItemReports.h"
#include "protocol/ReportParser.h"

#include <cstdint>
#include <span>
#include <string>
#include <variant>

namespace lumbra::overrides {

struct State {
    int item;
    bool on;
};

using Report = std::variant<State, reports::EndOfState>;

/// The Override screen's reports in matching order.
std::span<const ReportPattern<Report>> reportPatterns();

/// Operates an override, whichever way it stands. 0-based.
std::string operate(std::int64_t override_);

} // namespace lumbra::overrides

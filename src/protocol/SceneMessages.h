#pragma once

#include "protocol/ItemReports.h"
#include "protocol/ReportParser.h"

#include <cstdint>
#include <span>
#include <string>
#include <variant>

namespace lumbra::scenes {

using Report = std::variant<reports::ItemName, reports::EndOfState>;

/// The Scene screen's reports in matching order.
std::span<const ReportPattern<Report>> reportPatterns();

/// Has the unit apply a stored scene. 0-based.
std::string recall(std::int64_t scene);
/// Has the unit store its present setting as a scene. 0-based.
std::string store(std::int64_t scene);

} // namespace lumbra::scenes

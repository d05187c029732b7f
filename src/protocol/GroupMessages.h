#pragma once

#include "protocol/ItemReports.h"
#include "protocol/ReportParser.h"

#include <optional>
#include <string_view>
#include <variant>

namespace lumbra::groups {

/// The reports that the Group screen reads: about groups, about inputs, and the end of the answer.
using Report = std::variant<reports::Volume, reports::Input, reports::Mute, reports::Power, reports::ItemName,
                            reports::InputName, reports::InputStereo, reports::EndOfState>;

/// Parses a report text (the unit's bytes). Nothing if it is no report of the Group screen. Any thread.
std::optional<Parsed<Report>> parse(std::string_view text);

} // namespace lumbra::groups

#pragma once

#include "protocol/ItemReports.h"
#include "protocol/ReportParser.h"

#include <optional>
#include <string_view>
#include <variant>

namespace lumbra::groups {

/// What the Group screen reads: of groups, of inputs, and the end of the unit's answer.
using Report = std::variant<reports::Volume, reports::Input, reports::Mute, reports::Power, reports::ItemName,
                            reports::InputName, reports::InputStereo, reports::EndOfState>;

/// Reads a report text (the unit's bytes); nothing where it is no report of the Group screen. Any thread.
std::optional<Parsed<Report>> parse(std::string_view text);

} // namespace lumbra::groups

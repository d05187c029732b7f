#pragma once

#include "protocol/ItemReports.h"
#include "protocol/ReportParser.h"

#include <span>
#include <variant>

namespace lumbra {

/// An input's name: read by every screen that has an input picker.
template <class Report>
constexpr ReportPattern<Report> inputNameRow() {
    return {R"~(^U([0-9])I([0-9]{1,2})N"(.{1,16})")~", [](const Captures& c) -> Report {
                return reports::InputName{c.index(2), c.name(3)};
            }};
}

/// An input's stereo flag: read by every screen that has an input picker.
template <class Report>
constexpr ReportPattern<Report> inputStereoRow() {
    return {R"(^U([0-9])I([0-9]{1,2})STEREO([0-1]))", [](const Captures& c) -> Report {
                return reports::InputStereo{c.index(2), c.flag(3)};
            }};
}

namespace groups {

using Report = std::variant<reports::Volume, reports::Input, reports::Mute, reports::Power, reports::ItemName,
                            reports::InputName, reports::InputStereo, reports::EndOfState>;

/// The Group screen's reports in matching order.
std::span<const ReportPattern<Report>> reportPatterns();

} // namespace groups

} // namespace lumbra

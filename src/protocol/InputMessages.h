#pragma once

#include "protocol/ItemReports.h"
#include "protocol/ReportParser.h"

namespace lumbra {

// The rows about inputs, which are part of the tables of zones, outputs and groups. Report is the variant of
// the table.

template <class Report>
inline constexpr ReportRow<Report> INPUT_NAME{R"(U#I##N"*")",
                                              ReportRow<Report>::template name<reports::InputName>};
template <class Report>
inline constexpr ReportRow<Report> INPUT_STEREO{"U#I##STEREO[0-1]",
                                                ReportRow<Report>::template flag<reports::InputStereo>};

} // namespace lumbra

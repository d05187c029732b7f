#pragma once

#include "protocol/ItemReports.h"
#include "protocol/ReportParser.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace lumbra::scenes {

/// The reports that the Scene screen reads: the name of a scene, and the end of the answer.
using Report = std::variant<reports::ItemName, reports::EndOfState>;

/// Parses a report text (the unit's bytes). Nothing if it is no report of the Scene screen. Any thread.
std::optional<Parsed<Report>> parse(std::string_view text);

// These return command bodies. `scene` is 0-based, 0 to 9, and not checked. Any thread.

/// Makes the unit apply a stored scene.
std::string recall(std::int64_t scene);
/// Makes the unit store its current setting as a scene.
std::string store(std::int64_t scene);

} // namespace lumbra::scenes

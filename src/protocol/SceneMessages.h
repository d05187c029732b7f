#pragma once

#include "protocol/ItemReports.h"
#include "protocol/ReportParser.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace lumbra::scenes {

/// What the Scene screen reads: a scene's name, and the end of the unit's answer.
using Report = std::variant<reports::ItemName, reports::EndOfState>;

/// Reads a report text (the unit's bytes); nothing where it is no report of the Scene screen. Any thread.
std::optional<Parsed<Report>> parse(std::string_view text);

// Command bodies. Scenes are 0-based.

/// Has the unit apply a stored scene.
std::string recall(std::int64_t scene);
/// Has the unit store its present setting as a scene.
std::string store(std::int64_t scene);

} // namespace lumbra::scenes

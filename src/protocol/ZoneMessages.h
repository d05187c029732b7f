#pragma once

#include "protocol/ItemReports.h"
#include "protocol/ReportParser.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace lumbra::zones {

// Zones and outputs are 0-based. Nothing in a report is range-checked: a zone or output may be -1 to 98, a
// level -99 to 99.

/// The zone's loudness compensation is on or off.
struct Loudness {
    int item;
    bool on;
};
/// The zone's bass, in steps from -15 to 15.
struct Bass {
    int item;
    int level;
};
/// The zone's treble, in steps from -15 to 15.
struct Treble {
    int item;
    int level;
};
/// The output is a member of the zone.
struct OutputAssignment {
    int output;
    int item; ///< the zone
};

/// The reports that the Zone screen reads: about zones, about inputs, and the end of the answer.
using Report = std::variant<reports::Volume, reports::Input, reports::Mute, Loudness, Bass, Treble,
                            reports::InputName, reports::ItemName, OutputAssignment, reports::InputStereo,
                            reports::MaxVolume, reports::EndOfState>;

/// Parses a report text (the unit's bytes). Nothing if it is no report of the Zone screen. Any thread.
std::optional<Parsed<Report>> parse(std::string_view text);

// These return command bodies. `zone` is 0-based, 0 to 15. Ranges are not checked. Any thread.

/// Sets a zone's bass to `level` steps, -15 to 15.
std::string setBass(std::int64_t zone, std::int64_t level);
/// Sets a zone's treble to `level` steps, -15 to 15.
std::string setTreble(std::int64_t zone, std::int64_t level);
/// Turns a zone's loudness compensation on or off.
std::string setLoudness(std::int64_t zone, bool on);

} // namespace lumbra::zones

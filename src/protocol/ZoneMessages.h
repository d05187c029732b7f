#pragma once

#include "protocol/ItemReports.h"
#include "protocol/ReportParser.h"

#include <cstdint>
#include <span>
#include <string>
#include <variant>

namespace lumbra::zones {

struct Loudness {
    int item;
    bool on;
};
struct Bass {
    int item;
    int level;
};
struct Treble {
    int item;
    int level;
};
/// The output is a member of the zone.
struct OutputAssignment {
    int output;
    int item;
};

using Report = std::variant<reports::Volume, reports::Input, reports::Mute, Loudness, Bass, Treble,
                            reports::InputName, reports::ItemName, OutputAssignment, reports::InputStereo,
                            reports::MaxVolume, reports::EndOfState>;

/// The Zone screen's reports in matching order.
std::span<const ReportPattern<Report>> reportPatterns();

std::string setBass(std::int64_t zone, std::int64_t level);
std::string setTreble(std::int64_t zone, std::int64_t level);
std::string setLoudness(std::int64_t zone, bool on);

} // namespace lumbra::zones

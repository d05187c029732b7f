#pragma once

#include "model/FilterType.h"
#include "protocol/ItemReports.h"
#include "protocol/ReportParser.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace lumbra::outputs {

// Outputs and bands are 0-based. Of the numbers in reports only `band` is range-checked; an item may be -1 to
// 98, a level or gain -99 to 99 dB, a frequency 0 to 99999 Hz.

/// The complete setting of one band of an output's equaliser.
struct Band {
    int item;
    int band; ///< 0 to 6
    FilterType type;
    std::optional<int> gain;      ///< dB, for the shelves and the parametric filter
    std::optional<int> frequency; ///< Hz, for all but the bypass
};
/// The highest volume that the output may have when it is turned on, in dB.
struct MaxTurnOnVolume {
    int item;
    int level;
};
/// The lowest volume that the output may have when it is turned on, in dB.
struct MinTurnOnVolume {
    int item;
    int level;
};
/// The output is stereo or mono.
struct Stereo {
    int item;
    bool on;
};

/// The reports that the Output screen reads: about outputs, about inputs, and the end of the answer.
using Report = std::variant<reports::Volume, reports::Input, reports::Mute, reports::Power, Band,
                            reports::InputName, reports::ItemName, reports::MaxVolume, MaxTurnOnVolume,
                            MinTurnOnVolume, Stereo, reports::InputStereo, reports::EndOfState>;

/// Parses a report text (the unit's bytes). Nothing if it is no report of the Output screen. Any thread.
std::optional<Parsed<Report>> parse(std::string_view text);

/// Returns the command body for the complete setting of a band. `output` and `band` are 0-based. `gain`
/// is in dB (-15 to 15), `frequency` in Hz (1 to 20000); each is sent only for the types that have it. Ranges are not
/// checked. Any thread.
std::string setBand(std::int64_t output, std::int64_t band, FilterType type, std::int64_t gain,
                    std::int64_t frequency);

} // namespace lumbra::outputs

#pragma once

#include "protocol/ItemReports.h"
#include "protocol/ReportParser.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace lumbra::outputs {

// Outputs and bands are 0-based. In reports only the band is known to be in range.

/// The whole setting of one band of an output's equaliser.
struct Band {
    int item;
    int band;                     ///< 0 to 6
    std::int64_t type;            ///< Outputs::FILTER_*
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

/// What the Output screen reads: of outputs, of inputs, and the end of the unit's answer.
using Report = std::variant<reports::Volume, reports::Input, reports::Mute, reports::Power, Band,
                            reports::InputName, reports::ItemName, reports::MaxVolume, MaxTurnOnVolume,
                            MinTurnOnVolume, Stereo, reports::InputStereo, reports::EndOfState>;

/// Reads a report text (the unit's bytes); nothing where it is no report of the Output screen. Any thread.
std::optional<Parsed<Report>> parse(std::string_view text);

/// The command body for a band's whole setting. `type` is one of Outputs::FILTER_*; another one throws
/// std::out_of_range. `gain` (dB) and `frequency` (Hz) are sent where the type has them.
std::string setBand(std::int64_t output, std::int64_t band, std::int64_t type, std::int64_t gain,
                    std::int64_t frequency);

} // namespace lumbra::outputs

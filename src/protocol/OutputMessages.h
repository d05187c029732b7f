#pragma once

#include "protocol/ItemReports.h"
#include "protocol/ReportParser.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <variant>

namespace lumbra::outputs {

/// A band of an output's equaliser. Gain (dB) and frequency (Hz) are there where the filter type has them.
struct Band {
    int item;
    int band;          ///< 0-based
    std::int64_t type; ///< Outputs::FILTER_*
    std::optional<int> gain;
    std::optional<int> frequency;
};
/// The highest volume that the output may have when it is turned on.
struct MaxTurnOnVolume {
    int item;
    int level;
};
/// The lowest volume that the output may have when it is turned on.
struct MinTurnOnVolume {
    int item;
    int level;
};
struct Stereo {
    int item;
    bool on;
};

using Report = std::variant<reports::Volume, reports::Input, reports::Mute, reports::Power, Band,
                            reports::InputName, reports::ItemName, reports::MaxVolume, MaxTurnOnVolume,
                            MinTurnOnVolume, Stereo, reports::InputStereo, reports::EndOfState>;

/// The Output screen's reports in matching order.
std::span<const ReportPattern<Report>> reportPatterns();

/// A band's whole setting. `gain` and `frequency` are sent where the type has them. Output and band are
/// 0-based.
std::string setBand(std::int64_t output, std::int64_t band, std::int64_t type, std::int64_t gain,
                    std::int64_t frequency);

} // namespace lumbra::outputs

#pragma once

#include "model/Zones.h"
#include "toolkit/Label.h"

#include <cstdint>

namespace lumbra {

// The readings of the screens' labels: whole numbers, truncated toward zero. Any thread.

/// A volume in dB as a percentage of its range: -40 is "50%".
constexpr Reading percentOfVolume(std::int64_t volume) {
    return {(volume - Items::min_volume) * 100 / (Items::max_possible_volume - Items::min_volume),
            Reading::Unit::Percent};
}

/// A tone setting as a percentage of the highest: -7 is "-46%".
constexpr Reading percentOfTone(std::int64_t tone) {
    return {tone * 100 / Zones::max_bass, Reading::Unit::Percent};
}

/// A level or gain in dB: "-40 dB".
constexpr Reading decibels(std::int64_t level) {
    return {level, Reading::Unit::Decibel};
}

/// A frequency in Hz: in whole hertz below 1 kHz, else in whole kilohertz.
constexpr Reading hertz(std::int64_t frequency) {
    return frequency < 1000 ? Reading{frequency, Reading::Unit::Hertz}
                            : Reading{frequency / 1000, Reading::Unit::Kilohertz};
}

} // namespace lumbra

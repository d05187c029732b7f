#pragma once

#include "toolkit/Label.h"

#include <cstdint>

namespace lumbra {

// What the screens' labels read, in whole numbers that are truncated toward zero.

/// A volume in dB as a share of the way from -80 to 0: -40 reads "50%".
constexpr Reading percentOfVolume(std::int64_t volume) {
    return {(volume + 80) * 10 / 8, Reading::Unit::Percent};
}

/// A tone setting from -15 to 15 as a share of the way: -7 reads "-46%".
constexpr Reading percentOfTone(std::int64_t tone) {
    return {tone * 100 / 15, Reading::Unit::Percent};
}

/// A level or gain: "-40 dB".
constexpr Reading decibels(std::int64_t level) {
    return {level, Reading::Unit::Decibel};
}

/// A frequency in Hz: whole hertz below 1 kHz, whole kilohertz from there on.
constexpr Reading hertz(std::int64_t frequency) {
    return frequency < 1000 ? Reading{frequency, Reading::Unit::Hertz}
                            : Reading{frequency / 1000, Reading::Unit::Kilohertz};
}

} // namespace lumbra

#pragma once

#include <cstdint>
#include <string>

namespace lumbra {

// The texts of the screens' labels, all in whole numbers that are truncated toward zero.

/// A volume in dB as a share of the way from -80 to 0: -40 shows "50%".
inline std::string percentOfVolume(std::int64_t volume) {
    return std::to_string((volume + 80) * 10 / 8) + "%";
}

/// A tone setting from -15 to 15 as a share of the way: -7 shows "-46%".
inline std::string percentOfTone(std::int64_t tone) {
    return std::to_string(tone * 100 / 15) + "%";
}

/// A level or gain: "-40 dB".
inline std::string decibels(std::int64_t level) {
    return std::to_string(level) + " dB";
}

/// A frequency: whole hertz below 1 kHz, whole kilohertz from there on.
inline std::string hertz(std::int64_t frequency) {
    return frequency < 1000 ? std::to_string(frequency) + " Hz" : std::to_string(frequency / 1000) + " kHz";
}

} // namespace lumbra

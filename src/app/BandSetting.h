#pragma once

#include "model/FrequencyScale.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace lumbra {

/// What an equaliser band's sliders stand for: the setting that is sent once they rest.
struct BandSetting {
    std::int64_t frequency; ///< Hz
    std::int64_t gain;      ///< dB, truncated toward zero

    /// From the values of the sliders. Any thread.
    static BandSetting of(float frequencySlider, float gainSlider) {
        return {sliderToFrequency(frequencySlider), static_cast<std::int64_t>(gainSlider)};
    }
};

/// A frequency in Hz that the user has typed (UTF-8), in Hz or kHz: "3150", "3.15k", "3,15 kHz". A number without a unit
/// below 20 is in kHz. Nothing if it is none, or out of range. Any thread.
std::optional<std::int64_t> typedFrequency(std::string_view text);
/// The same for a gain in dB: "-3", "+3 dB".
std::optional<std::int64_t> typedGain(std::string_view text);

} // namespace lumbra

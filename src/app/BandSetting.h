#pragma once

#include "model/FrequencyScale.h"

#include <cstdint>

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

} // namespace lumbra

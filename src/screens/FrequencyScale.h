#pragma once

#include <cmath>
#include <cstdint>

namespace lumbra {

// A frequency slider stands at 1000 × log10 of the frequency in Hz, in single precision throughout.

inline float frequencyToSlider(std::int64_t frequency) {
    return std::log10(static_cast<float>(frequency)) * 1000.0F;
}

/// The nearest whole hertz, halves away from zero.
inline std::int64_t sliderToFrequency(float value) {
    return std::llround(std::pow(10.0F, value / 1000.0F));
}

} // namespace lumbra

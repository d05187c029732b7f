#pragma once

#include <cmath>
#include <cstdint>

namespace lumbra {

// The value of a frequency slider is 1000 × log10 of the frequency in Hz, computed in single precision. Any
// thread.

inline float frequencyToSlider(std::int64_t frequency) {
    return std::log10(static_cast<float>(frequency)) * 1000.0F;
}

/// The frequency in Hz, rounded to the nearest integer, halves away from zero.
inline std::int64_t sliderToFrequency(float value) {
    return std::llround(std::pow(10.0F, value / 1000.0F));
}

} // namespace lumbra

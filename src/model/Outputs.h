#pragma once

#include "model/Items.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace lumbra {

/// What is known of the unit's sixteen outputs and their equalisers. Every output is listed, stereo or not. Band n
/// on the wire is index n - 1.
class Outputs final : public Items {
public:
    static constexpr std::int64_t size = 16;
    static constexpr std::int64_t bands = 7;
    // A band's filter type; the number is also the segment of the band's type control.
    static constexpr std::int64_t FILTER_BYPASS = 0;
    static constexpr std::int64_t FILTER_HIGHPASS = 1;
    static constexpr std::int64_t FILTER_HIGHSHELF = 2;
    static constexpr std::int64_t FILTER_LOWPASS = 3;
    static constexpr std::int64_t FILTER_LOWSHELF = 4;
    static constexpr std::int64_t FILTER_PARAMETRIC = 5;
    static constexpr std::int64_t FREQ_MAX = 20000; ///< Hz
    static constexpr std::int64_t GAIN_MIN = -15;   ///< dB
    static constexpr std::int64_t GAIN_MAX = 15;    ///< dB

    template <class T>
    using PerOutput = std::array<T, static_cast<std::size_t>(size)>;
    using Bands = std::array<std::int64_t, static_cast<std::size_t>(bands)>;

    // By output and band.
    PerOutput<Bands> filter_freq;            ///< Hz
    PerOutput<Bands> filter_gain{};          ///< dB
    PerOutput<Bands> filter_type{};          ///< FILTER_*
    PerOutput<std::int64_t> max_to_volume{}; ///< highest volume when turned on, dB
    PerOutput<std::int64_t> max_volume{};    ///< highest volume, dB
    PerOutput<std::int64_t> min_to_volume;   ///< lowest volume when turned on, dB
    PerOutput<bool> power;
    PerOutput<bool> stereo{};

    Outputs() : Items(size, "Output") {
        Bands first;
        first.fill(1000);
        filter_freq.fill(first);
        min_to_volume.fill(min_volume);
        power.fill(true);
    }

    std::int64_t maxVolume(std::int64_t output) const override { return ofItem(max_volume, output); }
};

} // namespace lumbra

#pragma once

#include "model/FilterType.h"
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
    using enum FilterType;
    static constexpr std::int64_t SHOWN_FREQ_MIN = 20; ///< Hz, the lowest that a slider shows
    static constexpr std::int64_t FREQ_MAX = 20000;    ///< Hz
    static constexpr std::int64_t FIRST_FREQ = 1000;   ///< Hz, before the unit has reported any
    static constexpr std::int64_t GAIN_MIN = -15;      ///< dB
    static constexpr std::int64_t GAIN_MAX = 15;       ///< dB

    template <class T>
    using PerOutput = std::array<T, static_cast<std::size_t>(size)>;
    template <class T>
    using PerBand = std::array<T, static_cast<std::size_t>(bands)>;

    // By output and band.
    PerOutput<PerBand<std::int64_t>> filter_freq;   ///< Hz
    PerOutput<PerBand<std::int64_t>> filter_gain{}; ///< dB
    PerOutput<PerBand<FilterType>> filter_type{};
    PerOutput<std::int64_t> max_to_volume{}; ///< highest volume when turned on, dB
    PerOutput<std::int64_t> max_volume{};    ///< highest volume, dB
    PerOutput<std::int64_t> min_to_volume;   ///< lowest volume when turned on, dB
    PerOutput<bool> stereo{};

    Outputs() : Items(size, "Output") {
        for (auto& frequencies : filter_freq)
            frequencies.fill(FIRST_FREQ);
        min_to_volume.fill(min_volume);
        power.assign(name.size(), true);
    }

    std::int64_t maxVolume(std::int64_t output) const override { return ofItem(max_volume, output); }
};

} // namespace lumbra

#pragma once

#include "model/Defaults.h"
#include "model/HideLists.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

namespace lumbra {

/// What is known of the unit's sixteen outputs and their equalisers, the rows of the output picker, and which
/// output is selected. Output n and band n on the wire are index n - 1. Nothing is validated here: the writer
/// checks ranges.
class Outputs : public HideLists {
public:
    static constexpr std::int64_t size = 16;
    static constexpr std::int64_t bands = 7;
    static constexpr std::int64_t min_volume = -80; ///< dB
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

    PerOutput<Bands> filter_freq = filled<PerOutput<Bands>>(filled<Bands>(1000)); ///< Hz, by output and band
    PerOutput<Bands> filter_gain{};                                               ///< dB, by output and band
    PerOutput<Bands> filter_type{};          ///< FILTER_*, by output and band
    PerOutput<std::int64_t> max_to_volume{}; ///< highest volume when turned on, dB
    PerOutput<std::int64_t> max_volume{};    ///< highest volume, dB
    PerOutput<std::int64_t> min_to_volume =
        filled<PerOutput<std::int64_t>>(-80); ///< lowest volume when turned on, dB
    PerOutput<bool> mute{};
    PerOutput<std::string> name; ///< UTF-8
    PerOutput<bool> power = filled<PerOutput<bool>>(true);
    PerOutput<std::int64_t> source{}; ///< 0-based input
    PerOutput<bool> stereo{};
    PerOutput<std::int64_t> volume = filled<PerOutput<std::int64_t>>(-40); ///< dB
    std::int64_t current = 0;                                              ///< the current output

    Outputs();

    /// Rebuilds the rows from `name`. Every output is listed, stereo or not.
    void rebuildHideLists();
};

} // namespace lumbra

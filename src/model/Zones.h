#pragma once

#include "model/Defaults.h"
#include "model/HideLists.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

namespace lumbra {

/// What is known of the unit's sixteen zones, the rows of the zone picker, and which zone is selected. Zone n
/// on the wire is index n - 1. Nothing is validated here: the writer checks ranges.
class Zones : public HideLists {
public:
    static constexpr std::int64_t size = 16;
    static constexpr std::int64_t min_volume = -80;        ///< dB
    static constexpr std::int64_t max_possible_volume = 0; ///< dB
    static constexpr std::int64_t min_bass = -15;
    static constexpr std::int64_t max_bass = 15;
    static constexpr std::int64_t min_treble = -15;
    static constexpr std::int64_t max_treble = 15;
    template <class T>
    using PerZone = std::array<T, static_cast<std::size_t>(size)>;

    PerZone<std::int64_t> bass{};
    PerZone<bool> loudness{};
    PerZone<std::int64_t> max_volume{}; ///< the highest volume that the unit allows, dB
    PerZone<bool> hasMembership{};      ///< an output has been reported as assigned; never reset
    PerZone<bool> mute{};
    PerZone<std::string> name;      ///< UTF-8
    PerZone<std::int64_t> source{}; ///< 0-based input
    PerZone<std::int64_t> treble{};
    PerZone<std::int64_t> volume = filled<PerZone<std::int64_t>>(-40); ///< dB
    std::int64_t current = 0;                                          ///< the current zone

    /// A fresh model lists all sixteen zones, although none has an output yet.
    Zones();

    /// Rebuilds the rows from `name` and `hasMembership`: the zones that have an output assigned.
    void rebuildHideLists();
};

} // namespace lumbra

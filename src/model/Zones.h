#pragma once

#include "model/Items.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace lumbra {

/// What is known of the unit's sixteen zones. A fresh model lists all of them; rebuilt rows have those with an
/// output.
class Zones final : public Items {
public:
    static constexpr std::int64_t size = 16;
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
    PerZone<std::int64_t> treble{};

    Zones() : Items(size, "Zone") {}

    std::int64_t maxVolume(std::int64_t zone) const override { return ofItem(max_volume, zone); }

protected:
    bool isListed(std::size_t zone) const override { return hasMembership[zone]; }
};

} // namespace lumbra

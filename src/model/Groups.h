#pragma once

#include "model/Items.h"

#include <cstdint>

namespace lumbra {

/// What is known of the unit's ten groups.
class Groups final : public Items {
public:
    static constexpr std::int64_t size = 10;
    static constexpr std::int64_t max_volume = max_possible_volume; ///< dB, of every group

    Groups() : Items(size, "Group") { power.assign(name.size(), true); }

    std::int64_t maxVolume(std::int64_t) const override { return max_volume; }
};

} // namespace lumbra

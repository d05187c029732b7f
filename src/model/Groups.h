#pragma once

#include "model/Defaults.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

namespace lumbra {

/// What is known of the unit's ten groups, and which one is selected. Group n on the wire is index n - 1.
/// Nothing is validated here: the writer checks ranges.
class Groups {
public:
    static constexpr std::int64_t size = 10;
    static constexpr std::int64_t min_volume = -80; ///< dB
    static constexpr std::int64_t max_volume = 0;   ///< dB
    template <class T>
    using PerGroup = std::array<T, static_cast<std::size_t>(size)>;

    PerGroup<bool> mute{};
    PerGroup<std::string> name; ///< UTF-8
    PerGroup<bool> power = filled<PerGroup<bool>>(true);
    PerGroup<std::int64_t> source{};                                     ///< 0-based input
    PerGroup<std::int64_t> volume = filled<PerGroup<std::int64_t>>(-40); ///< dB
    std::int64_t current = 0;                                            ///< the current group

    Groups() { fillDefaultNames(name, "Group"); }
};

} // namespace lumbra

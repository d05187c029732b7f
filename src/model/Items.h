#pragma once

#include "model/HideLists.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace lumbra {

/// What is known of the unit's zones, outputs or groups, the rows of a picker over them, and which one is
/// selected. Nothing is validated here: the writer checks ranges.
class Items : public HideLists {
public:
    static constexpr std::int64_t min_volume = -80;        ///< dB
    static constexpr std::int64_t max_possible_volume = 0; ///< dB
    static constexpr std::int64_t FIRST_VOLUME = -40;      ///< dB, before the unit has reported any

    std::vector<bool> mute;
    std::vector<bool> power;          ///< empty for items that can't be turned off
    std::vector<std::int64_t> source; ///< 0-based input
    std::vector<std::int64_t> volume; ///< dB
    std::int64_t current = 0;         ///< the current item

    /// The highest volume that the unit allows for an item, in dB.
    virtual std::int64_t maxVolume(std::int64_t item) const = 0;

protected:
    Items(std::int64_t size, const std::string& kind)
        : HideLists(size, kind), mute(name.size()), source(name.size()), volume(name.size(), FIRST_VOLUME) {}
};

/// An item's element of one of a model's fields.
template <class Field>
decltype(auto) ofItem(Field& field, std::int64_t item) {
    return field[static_cast<std::size_t>(item)];
}

} // namespace lumbra

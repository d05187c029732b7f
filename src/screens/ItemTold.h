#pragma once

#include "model/Outputs.h"
#include "toolkit/ItemList.h"

#include <cstdint>
#include <optional>

namespace lumbra {

/// A number that the unit reports and that the user can ask for.
struct Told {
    std::int64_t reported;               ///< the first value while it is not known
    bool known = false;                  ///< a report has given it
    std::optional<std::int64_t> asked{}; ///< sent, and not reported since

    void report(std::int64_t value) { *this = {value, true}; }
};

/// What the unit has reported of an item, and what it was asked for since. This stands beside the model, which
/// begins with first values and takes a number as soon as it is sent.
struct ItemTold {
    /// Which values of a band are known, and what it was before it was bypassed.
    struct Band {
        bool type = false;
        bool frequency = false;
        bool gain = false;
        FilterType last = FILTER_BYPASS; ///< bypass if it has never been another
    };

    Told volume; ///< dB
    Told input;  ///< 0-based
    // Which of the other values are known. Those that are shown in the list change in the model by reports alone.
    bool name = false;
    bool mute = false;
    bool power = false;
    bool loudness = false;
    bool bass = false;
    bool treble = false;
    Outputs::PerBand<Band> bands{};

    ItemRow::Known known() const { return {name, input.known, volume.known, mute, power}; }
};

} // namespace lumbra

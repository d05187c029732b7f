#pragma once

#include "protocol/Name.h"

namespace lumbra::reports {

// The reports that several families share. Items and inputs are 0-based and not range-checked; levels are in
// dB.

/// The item plays at `level` and is not muted.
struct Volume {
    int item;
    int level;
};
/// The item plays `input`.
struct Input {
    int item;
    int input;
};
struct Mute {
    int item;
    bool on;
};
struct Power {
    int item;
    bool on;
};
struct ItemName {
    int item;
    Name name;
};
struct InputName {
    int input;
    Name name;
};
struct InputStereo {
    int input;
    bool on;
};
/// The highest volume that the unit allows for the item.
struct MaxVolume {
    int item;
    int level;
};
/// The unit has answered the screen's state query.
struct EndOfState {};

} // namespace lumbra::reports

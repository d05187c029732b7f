#pragma once

#include "protocol/Name.h"

namespace lumbra::reports {

// The reports that several screens read. An item is a zone, an output, a group or a scene. Items and inputs
// are 0-based; they may be -1 or beyond the last one, and levels out of range: who acts on a report checks
// that.

/// The item's volume, in dB. Such a report also says that the item is not muted.
struct Volume {
    int item;
    int level;
};
/// The item plays `input`.
struct Input {
    int item;
    int input;
};
/// The item is muted or not.
struct Mute {
    int item;
    bool on;
};
/// The output or group is turned on or off.
struct Power {
    int item;
    bool on;
};
/// The item's name.
struct ItemName {
    int item;
    Name name;
};
/// The input's name.
struct InputName {
    int input;
    Name name;
};
/// The input is stereo or mono.
struct InputStereo {
    int input;
    bool on;
};
/// The highest volume that the unit allows for the item, in dB.
struct MaxVolume {
    int item;
    int level;
};
/// The unit has answered the screen's state query.
struct EndOfState {};

} // namespace lumbra::reports

#pragma once

#include "protocol/Name.h"

namespace lumbra::reports {

// The reports that several screens read. An item is a zone, an output, a group or a scene. Items and inputs
// are 0-based, levels in dB. Nothing is range-checked: an item or input may be -1 or beyond the last one (up
// to 98), a level anything from -99 to 99. Whoever handles a report checks it.

/// The item's volume in dB. The report also means that the item is not muted.
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
/// The end of the answer to a state query.
struct EndOfState {};

} // namespace lumbra::reports

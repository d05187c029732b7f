#pragma once

#include "simulator/UnitState.h"

#include <array>
#include <string>
#include <vector>

namespace lumbra::sim {

// Names are 1 to 16 characters of ISO 8859-1, one byte each, without round brackets and line breaks.

/// An input as it is wired.
struct InputFacts {
    std::string name;
    int stereo;
};

/// A zone as the installer left it.
struct ZoneFacts {
    std::string name;
    int maximum_volume;
};

/// An output as the installer left it. The turn-on range lies within the maximum volume.
struct OutputFacts {
    std::string name;
    int zone; ///< 0-based
    int stereo;
    int maximum_volume;
    int minimum_turn_on_volume;
    int maximum_turn_on_volume;
};

/// A group and the zones that it leads (0-based).
struct GroupFacts {
    std::string name;
    std::vector<int> zones;
};

/// What an override holds while it is on, in its zones (0-based) and their outputs; UNKNOWN leaves a value
/// alone.
struct OverrideFacts {
    std::vector<int> zones;
    int input = UNKNOWN;
    int volume = UNKNOWN;
    int volume_ceiling = UNKNOWN;
    int mute = UNKNOWN;
    int power = UNKNOWN;
    bool flat = false; ///< tone controls at zero, loudness off, every equaliser band bypassed
};

/// What a unit's installer decides: names, wiring and limits, and the memory it starts with.
struct House {
    std::array<InputFacts, INPUTS> inputs;
    std::array<ZoneFacts, ZONES> zones;
    std::array<OutputFacts, OUTPUTS> outputs;
    std::array<GroupFacts, GROUPS> groups;
    std::array<OverrideFacts, OVERRIDES> overrides;
    std::array<std::string, SCENES> scene_names;
    Memory memory;
};

/// The house that the simulated unit plays: twelve zones in use on sixteen outputs, four zones without any.
House exampleHouse();

} // namespace lumbra::sim

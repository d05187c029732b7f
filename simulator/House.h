#pragma once

#include "simulator/UnitState.h"

#include <array>
#include <string>
#include <vector>

namespace lumbra::sim {

// Names are 1 to 16 characters of ISO 8859-1, one byte each, without round brackets and line breaks.

/// An input.
struct InputFacts {
    std::string name;
    int stereo;
};

/// A zone as configured by the installer.
struct ZoneFacts {
    std::string name;
    int maximum_volume;
};

/// An output as configured by the installer. The turn-on range is within the maximum volume.
struct OutputFacts {
    std::string name;
    int zone; ///< 0-based
    int stereo;
    int maximum_volume;
    int minimum_turn_on_volume;
    int maximum_turn_on_volume;
};

/// A group and the zones that it controls (0-based).
struct GroupFacts {
    std::string name;
    std::vector<int> zones;
};

/// What an override enforces in its zones (0-based) and their outputs while it is on. UNKNOWN leaves a value
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

/// The configuration of a unit by its installer: names, wiring and limits, and the initial memory.
struct House {
    std::array<InputFacts, INPUTS> inputs;
    std::array<ZoneFacts, ZONES> zones;
    std::array<OutputFacts, OUTPUTS> outputs;
    std::array<GroupFacts, GROUPS> groups;
    std::array<OverrideFacts, OVERRIDES> overrides;
    std::array<std::string, SCENES> scene_names;
    Memory memory;
};

/// The house of the simulated unit: twelve zones in use on sixteen outputs, and four zones without any.
House exampleHouse();

} // namespace lumbra::sim

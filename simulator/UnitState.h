#pragma once

#include <array>
#include <limits>

namespace lumbra::sim {

constexpr int ZONES = 16;
constexpr int OUTPUTS = 16;
constexpr int BANDS = 7;
constexpr int GROUPS = 10;
constexpr int INPUTS = 20;
constexpr int OVERRIDES = 10;
constexpr int SCENES = 10;

/// A closed range of whole numbers.
struct Range {
    int low;
    int high;

    constexpr bool holds(int value) const { return low <= value && value <= high; }
};

constexpr Range VOLUME{-80, 0};
constexpr Range TONE{-15, 15};
constexpr Range GAIN{-15, 15};
constexpr Range FREQUENCY{1, 20000};
constexpr Range INPUT{1, INPUTS};
constexpr Range FLAG{0, 1};

/// No value. It differs from every real one: a value that clients were last told as UNKNOWN is always
/// reported.
constexpr int UNKNOWN = std::numeric_limits<int>::min();

// Every value is an int, flags included, so that any of them can be UNKNOWN. Inputs count from 1, volumes and
// gains are in dB, frequencies in Hz.

struct Zone {
    int volume = -40;
    int mute = 0;
    int input = 1;
    int loudness = 0;
    int bass = 0;
    int treble = 0;

    bool operator==(const Zone&) const = default;
};

enum Filter { BYPASS, HIGH_PASS, HIGH_SHELF, LOW_PASS, LOW_SHELF, PARAMETRIC };
constexpr Range FILTER{BYPASS, PARAMETRIC};

struct Band {
    int filter = BYPASS;
    int frequency = 1000;
    int gain = 0;

    bool operator==(const Band&) const = default;
};

struct Output {
    int power = 1;
    int volume = -40;
    int mute = 0;
    int input = 1;
    std::array<Band, BANDS> bands{};

    bool operator==(const Output&) const = default;
};

struct Group {
    int power = 1;
    int volume = -40;
    int mute = 0;
    int input = 1;

    bool operator==(const Group&) const = default;
};

/// All that commands can set, and all that a scene stores.
struct Setting {
    std::array<Zone, ZONES> zones{};
    std::array<Output, OUTPUTS> outputs{};
    std::array<Group, GROUPS> groups{};

    bool operator==(const Setting&) const = default;
};

/// The memory of a unit, which is kept while it is off.
struct Memory {
    Setting setting;
    std::array<int, OVERRIDES> overrides{};
    std::array<Setting, SCENES> scenes{};

    bool operator==(const Memory&) const = default;
};

} // namespace lumbra::sim

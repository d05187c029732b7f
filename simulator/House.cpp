#include "simulator/House.h"

#include <cstddef>

namespace lumbra::sim {

namespace {

const std::vector<int> IN_USE = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11};

/// Sets the input and volume of every zone of `setting` and of its outputs.
void playEverywhere(Setting& setting, int input, int volume) {
    for (Zone& zone : setting.zones) {
        zone.input = input;
        zone.volume = volume;
        zone.mute = 0;
    }
    for (Output& output : setting.outputs) {
        output.input = input;
        output.volume = volume;
        output.mute = 0;
        output.power = 1;
    }
}

Setting firstSetting(const House& house) {
    Setting setting;
    setting.zones = {{
        // volume, mute, input, loudness, bass, treble
        {-32, 0, 2, 0, 3, 1},
        {-38, 0, 1, 0, 0, 2},
        {-44, 0, 4, 1, 2, 0},
        {-52, 1, 11, 1, 4, -2},
        {-41, 0, 6, 0, -3, 0},
        {-36, 0, 1, 0, 0, 5},
        {-47, 0, 2, 1, 0, 0},
        {-28, 0, 5, 0, 6, 3},
        {-25, 0, 8, 0, 7, -1},
        {-33, 0, 9, 0, 0, 4},
        {-42, 1, 14, 0, -15, 15},
        {-22, 0, 13, 0, 5, 5},
        {},
        {},
        {},
        {},
    }};
    for (std::size_t index = 0; index < setting.outputs.size(); ++index) {
        const Zone& zone = setting.zones[static_cast<std::size_t>(house.outputs[index].zone)];
        setting.outputs[index] = {1, zone.volume, zone.mute, zone.input, {}};
    }
    const auto band = [&](std::size_t output, std::size_t number, Band value) {
        setting.outputs[output - 1].bands[number - 1] = value;
    };
    band(1, 1, {HIGH_PASS, 40, 0});
    band(1, 2, {LOW_SHELF, 120, 4});
    band(1, 3, {PARAMETRIC, 1000, -3});
    band(1, 4, {PARAMETRIC, 3150, 2});
    band(1, 7, {HIGH_SHELF, 8000, -6});
    band(3, 1, {HIGH_PASS, 80, 0});
    band(5, 2, {LOW_SHELF, 200, -15});
    band(10, 1, {LOW_PASS, 90, 0});
    band(10, 2, {PARAMETRIC, 45, 15});
    band(11, 1, {HIGH_PASS, 100, 0});
    band(12, 1, {LOW_PASS, 100, 0});
    band(13, 6, {LOW_PASS, 12500, 0});
    band(16, 7, {HIGH_SHELF, 20000, 1});
    setting.outputs[1].volume = -36;
    setting.outputs[8].mute = 1;
    setting.outputs[15].power = 0;
    setting.groups = {{
        // power, volume, mute, input
        {1, -40, 0, 1},
        {1, -38, 0, 2},
        {1, -50, 0, 11},
        {1, -35, 1, 9},
        {1, -28, 0, 8},
        {1, -60, 0, 4},
        {1, -20, 0, 3},
        {0, -30, 0, 13},
        {1, -41, 0, 6},
        {1, -40, 0, 20},
    }};
    return setting;
}

std::array<Setting, SCENES> firstScenes(const Setting& first) {
    std::array<Setting, SCENES> scenes;
    scenes.fill(first);
    playEverywhere(scenes[0], 1, -50);
    playEverywhere(scenes[1], 1, -36);
    playEverywhere(scenes[3], 4, -46);
    scenes[4].zones[0] = {-26, 0, 12, 0, 4, 2};
    scenes[4].zones[1].mute = 1;
    playEverywhere(scenes[5], 3, -18);
    scenes[6].zones[9] = {-24, 0, 9, 0, 2, 2};
    scenes[7].zones[8].volume = -45;
    playEverywhere(scenes[8], 2, -70);
    for (Output& output : scenes[9].outputs)
        output.power = 0;
    for (Group& group : scenes[9].groups)
        group.power = 0;
    return scenes;
}

} // namespace

House exampleHouse() {
    House house;
    house.inputs = {{
        {"Tuner", 1},          {"Streamer", 1},      {"Turntable", 1},   {"CD Player", 1},
        {"Television", 1},     {"Games Console", 1}, {"Piano Mic", 0},   {"Jukebox", 1},
        {"Caf\xE9 Player", 1}, {"Laptop", 1},        {"Phone Dock", 1},  {"Disc Player", 1},
        {"Gym Coach", 1},      {"Garden Party", 1},  {"Lectern Mic", 0}, {"Intercom", 0},
        {"Baby Monitor", 0},   {"Doorbell", 0},      {"Evacuation", 0},  {"Paging Mic", 0},
    }};
    house.zones = {{
        {"Living Room", -5},
        {"Kitchen", -10},
        {"Dining Room", -12},
        {"Master Bedroom", -20},
        {"Kids' Room", -25},
        {"Bathroom", -18},
        {"Study", -15},
        {"\"The Den\"", 0},
        {"Conservatory Bar", 0},
        {"Caf\xE9 Terrace", -8},
        {"Garden", -14},
        {"Gym", -3},
        {"Annexe 1", 0},
        {"Annexe 2", 0},
        {"Annexe 3", 0},
        {"Annexe 4", 0},
    }};
    house.outputs = {{
        // zone, stereo, maximum, minimum and maximum turn-on volume
        {"Living Front", 0, 1, -5, -50, -20},
        {"Living Rear", 0, 1, -8, -50, -20},
        {"Kitchen Ceiling", 1, 1, -10, -60, -25},
        {"Dining Ceiling", 2, 0, -12, -60, -30},
        {"Bedroom Walls", 3, 1, -20, -70, -40},
        {"Kids' Ceiling", 4, 0, -25, -70, -40},
        {"Bathroom", 5, 0, -18, -55, -30},
        {"Study Shelf", 6, 1, -15, -60, -35},
        {"Den Surround", 7, 1, 0, -45, -15},
        {"Den 12\" Sub", 7, 0, -6, -45, -20},
        {"Bar Main", 8, 1, 0, -40, -20},
        {"Bar 15\" Sub", 8, 0, -4, -40, -20},
        {"Terrace Horns", 9, 0, -8, -50, -30},
        {"Garden Rocks N", 10, 1, -14, -55, -35},
        {"Garden Rocks S", 10, 1, -14, -55, -35},
        {"Gym", 11, 1, -3, -50, -25},
    }};
    house.groups = {{
        {"Whole House", IN_USE},
        {"Downstairs", {0, 1, 2, 6, 7}},
        {"Upstairs", {3, 4, 5}},
        {"Outdoors", {9, 10}},
        {"Bar & Terrace", {8, 9}},
        {"Quiet Rooms", {3, 4, 6}},
        {"Party Floor", {0, 1, 2, 8}},
        {"Wellness", {5, 11}},
        {"Kids & Den", {4, 7}},
        {"Annexe", {12, 13, 14, 15}},
    }};
    // A later override takes precedence over an earlier one: an evacuation is heard whatever else is on.
    house.overrides = {{
        {.zones = IN_USE, .volume_ceiling = -45},                             // night
        {.zones = IN_USE, .flat = true},                                      // flat sound
        {.zones = {4}, .mute = 1},                                            // homework
        {.zones = {8, 9}, .input = 5},                                        // the match in the bar
        {.zones = {0, 1, 2, 8}, .input = 3, .volume = -22, .mute = 0},        // party
        {.zones = {0, 1, 6, 10}, .input = 18, .volume = -35, .mute = 0},      // doorbell
        {.zones = IN_USE, .power = 0},                                        // everything off
        {.zones = IN_USE, .mute = 1},                                         // everything muted
        {.zones = IN_USE, .input = 20, .volume = -30, .mute = 0},             // paging
        {.zones = IN_USE, .input = 19, .volume = -20, .mute = 0, .power = 1}, // evacuation
    }};
    house.scene_names = {"Good Morning", "Breakfast Radio", "Working Day",  "Dinner Jazz",
                         "Film Night",   "Party",           "Caf\xE9 Open", "\"Last\" Orders",
                         "Good Night",   "Everything Off"};
    house.memory.setting = firstSetting(house);
    house.memory.scenes = firstScenes(house.memory.setting);
    return house;
}

} // namespace lumbra::sim

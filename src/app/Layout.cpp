#include "app/Layout.h"

#include "screens/FrequencyScale.h"
#include "toolkit/ActivityIndicator.h"
#include "toolkit/Button.h"
#include "toolkit/Label.h"
#include "toolkit/Picker.h"
#include "toolkit/SegmentedControl.h"
#include "toolkit/Slider.h"
#include "toolkit/Switch.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace lumbra {

namespace {

using Kind = Control::Kind;

/// One line of the layout, or several alike: a line with a count of n stands for n controls, whose names, and
/// whose captions if they have one, end in 1 to n.
struct Line {
    std::string_view name;
    std::string_view caption;
    Kind kind;
    std::string_view text = {}; ///< a label's text, a button's title
    float minimum = 0;
    float maximum = 0;
    float value = 0; ///< a slider's value; a switch is on where it is not 0
    bool enabled = true;
    int count = 1;
};

struct Screen {
    std::string_view name;
    std::string_view title;
    std::span<const Line> lines;
};

constexpr std::array FILTER_TYPES{"Bypass", "High-pass", "High shelf", "Low-pass", "Low shelf", "Parametric"};

constexpr Line picker(std::string_view name, std::string_view caption) {
    return {.name = name, .caption = caption, .kind = Kind::Picker};
}
constexpr Line slider(std::string_view name, std::string_view caption, float minimum, float maximum,
                      float value) {
    return {.name = name,
            .caption = caption,
            .kind = Kind::Slider,
            .minimum = minimum,
            .maximum = maximum,
            .value = value};
}
constexpr Line onOff(std::string_view name, std::string_view caption, bool on) {
    return {.name = name, .caption = caption, .kind = Kind::Switch, .value = on ? 1.0F : 0.0F};
}
constexpr Line label(std::string_view name, std::string_view text) {
    return {.name = name, .caption = {}, .kind = Kind::Label, .text = text};
}
constexpr Line button(std::string_view name, std::string_view title) {
    return {.name = name, .caption = {}, .kind = Kind::Button, .text = title};
}
constexpr Line spinner() {
    return {.name = "spinner", .caption = {}, .kind = Kind::ActivityIndicator};
}
constexpr Line times(int count, Line line) {
    line.count = count;
    return line;
}
constexpr Line disabled(Line line) {
    line.enabled = false;
    return line;
}

constexpr std::array ZONE{
    picker("zonePicker", "Zone"),
    picker("sourcePicker", "Input"),
    slider("volumeSlider", "Volume", -80, 0, -40),
    label("volumeLabel", "50%"),
    onOff("muteSwitch", "Mute", false),
    onOff("loudnessSwitch", "Loudness", false),
    slider("bassSlider", "Bass", -15, 15, 0),
    label("bassLabel", "0%"),
    slider("trebleSlider", "Treble", -15, 15, 0),
    label("trebleLabel", "0%"),
    spinner(),
};

const std::array OUTPUT{
    picker("outputPicker", "Output"),
    picker("sourcePicker", "Input"),
    slider("volumeSlider", "Volume", -80, 0, -40),
    label("volumeLabel", "-40 dB"),
    onOff("muteSwitch", "Mute", false),
    onOff("powerSwitch", "Power", true),
    times(7, {.name = "filterType", .caption = "Type", .kind = Kind::Segmented}),
    times(7,
          disabled(slider("filterFreq", "Frequency", frequencyToSlider(20), frequencyToSlider(20000), 3000))),
    times(7, label("freqLabel", "1 kHz")),
    times(7, disabled(slider("filterGain", "Gain", -15, 15, 0))),
    times(7, label("gainLabel", "0 dB")),
    spinner(),
};

constexpr std::array GROUP{
    picker("groupPicker", "Group"),
    picker("sourcePicker", "Input"),
    slider("volumeSlider", "Volume", -80, 0, -40),
    label("volumeLabel", "50%"),
    onOff("muteSwitch", "Mute", false),
    onOff("powerSwitch", "Power", true),
    spinner(),
};

constexpr std::array OVERRIDE{
    times(10, onOff("ovrSwitch", "Override", false)),
    spinner(),
};

constexpr std::array SCENE{
    picker("scenePicker", "Scene"),
    button("loadSceneButton", "Recall"),
    button("saveSceneButton", "Store"),
    spinner(),
};

const std::array SCREENS{
    Screen{"zone", "Zones", ZONE},    Screen{"output", "Outputs", OUTPUT},
    Screen{"group", "Groups", GROUP}, Screen{"override", "Overrides", OVERRIDE},
    Screen{"scene", "Scenes", SCENE},
};

std::shared_ptr<Control> build(const Line& line) {
    std::shared_ptr<Control> control;
    switch (line.kind) {
    case Kind::Picker:
        control = std::make_shared<Picker>();
        break;
    case Kind::Slider:
        control = std::make_shared<Slider>(line.minimum, line.maximum, line.value);
        break;
    case Kind::Switch:
        control = std::make_shared<Switch>(line.value != 0);
        break;
    case Kind::Segmented:
        control = std::make_shared<SegmentedControl>(
            std::vector<std::string>(FILTER_TYPES.begin(), FILTER_TYPES.end()), 0);
        break;
    case Kind::Label:
        control = std::make_shared<Label>(std::string(line.text));
        break;
    case Kind::ActivityIndicator:
        control = std::make_shared<ActivityIndicator>();
        break;
    case Kind::Button:
        control = std::make_shared<Button>(std::string(line.text));
        break;
    }
    control->setEnabled(line.enabled);
    return control;
}

} // namespace

std::shared_ptr<View> buildView(std::string_view screen) {
    const auto* found = std::find_if(SCREENS.begin(), SCREENS.end(),
                                     [screen](const Screen& candidate) { return candidate.name == screen; });
    assert(found != SCREENS.end() && "no such screen in the layout");
    auto view = std::make_shared<View>(std::string(found->name), std::string(found->title));
    for (const auto& line : found->lines) {
        for (int number = 1; number <= line.count; ++number) {
            std::string name(line.name);
            std::string caption(line.caption);
            if (line.count > 1) {
                name += std::to_string(number);
                if (!caption.empty())
                    caption += " " + std::to_string(number);
            }
            view->add({std::move(name), std::move(caption), build(line)});
        }
    }
    return view;
}

} // namespace lumbra

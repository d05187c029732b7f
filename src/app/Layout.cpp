#include "app/Layout.h"

#include "screens/FrequencyScale.h"
#include "screens/Readings.h"
#include "toolkit/Controls.h"
#include "toolkit/Translatable.h"

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

/// One control of the layout, or `count` of them: their names end in 1 to `count`, and so do their captions
/// if they have any.
struct LayoutLine {
    std::string_view name;
    std::string_view caption;
    Kind kind;
    std::string_view text = {}; ///< a button's title
    Reading reading = {};       ///< a label's
    float minimum = 0;
    float maximum = 0;
    float value = 0; ///< a slider's value; a switch is on where it is not 0
    bool enabled = true;
    bool sends = true; ///< see View::Item
    int count = 1;
};

struct Screen {
    std::string_view name;
    std::string_view title;
    std::span<const LayoutLine> lines;
};

constexpr std::array FILTER_TYPES{LUMBRA_TEXT("System", "Bypass"),     LUMBRA_TEXT("System", "High-pass"),
                                  LUMBRA_TEXT("System", "High shelf"), LUMBRA_TEXT("System", "Low-pass"),
                                  LUMBRA_TEXT("System", "Low shelf"),  LUMBRA_TEXT("System", "Parametric")};

constexpr LayoutLine picker(std::string_view name, std::string_view caption) {
    return {.name = name, .caption = caption, .kind = Kind::Picker};
}
constexpr LayoutLine itemPicker(std::string_view name, std::string_view caption) {
    return {.name = name, .caption = caption, .kind = Kind::Picker, .sends = false};
}
constexpr LayoutLine slider(std::string_view name, std::string_view caption, float minimum, float maximum,
                            float value) {
    return {.name = name,
            .caption = caption,
            .kind = Kind::Slider,
            .minimum = minimum,
            .maximum = maximum,
            .value = value};
}
constexpr LayoutLine onOff(std::string_view name, std::string_view caption, bool on) {
    return {.name = name, .caption = caption, .kind = Kind::Switch, .value = on ? 1.0F : 0.0F};
}
constexpr LayoutLine label(std::string_view name, const Reading& reading) {
    return {.name = name, .caption = {}, .kind = Kind::Label, .reading = reading};
}
constexpr LayoutLine button(std::string_view name, std::string_view title) {
    return {.name = name, .caption = {}, .kind = Kind::Button, .text = title};
}
constexpr LayoutLine spinner() {
    return {.name = "spinner", .caption = {}, .kind = Kind::ActivityIndicator};
}
constexpr LayoutLine times(int count, LayoutLine line) {
    line.count = count;
    return line;
}
constexpr LayoutLine disabled(LayoutLine line) {
    line.enabled = false;
    return line;
}

constexpr std::array ZONE{
    itemPicker("zonePicker", LUMBRA_TEXT("System", "Zone")),
    picker("sourcePicker", LUMBRA_TEXT("System", "Input")),
    slider("volumeSlider", LUMBRA_TEXT("System", "Volume"), -80, 0, -40),
    label("volumeLabel", percentOfVolume(-40)),
    onOff("muteSwitch", LUMBRA_TEXT("System", "Mute"), false),
    onOff("loudnessSwitch", LUMBRA_TEXT("System", "Loudness"), false),
    slider("bassSlider", LUMBRA_TEXT("System", "Bass"), -15, 15, 0),
    label("bassLabel", percentOfTone(0)),
    slider("trebleSlider", LUMBRA_TEXT("System", "Treble"), -15, 15, 0),
    label("trebleLabel", percentOfTone(0)),
    spinner(),
};

const std::array OUTPUT{
    itemPicker("outputPicker", LUMBRA_TEXT("System", "Output")),
    picker("sourcePicker", LUMBRA_TEXT("System", "Input")),
    slider("volumeSlider", LUMBRA_TEXT("System", "Volume"), -80, 0, -40),
    label("volumeLabel", decibels(-40)),
    onOff("muteSwitch", LUMBRA_TEXT("System", "Mute"), false),
    onOff("powerSwitch", LUMBRA_TEXT("System", "Power"), true),
    times(7, {.name = "filterType", .caption = LUMBRA_TEXT("System", "Type"), .kind = Kind::Segmented}),
    times(7, disabled(slider("filterFreq", LUMBRA_TEXT("System", "Frequency"), frequencyToSlider(20),
                             frequencyToSlider(20000), 3000))),
    times(7, label("freqLabel", hertz(1000))),
    times(7, disabled(slider("filterGain", LUMBRA_TEXT("System", "Gain"), -15, 15, 0))),
    times(7, label("gainLabel", decibels(0))),
    spinner(),
};

constexpr std::array GROUP{
    itemPicker("groupPicker", LUMBRA_TEXT("System", "Group")),
    picker("sourcePicker", LUMBRA_TEXT("System", "Input")),
    slider("volumeSlider", LUMBRA_TEXT("System", "Volume"), -80, 0, -40),
    label("volumeLabel", percentOfVolume(-40)),
    onOff("muteSwitch", LUMBRA_TEXT("System", "Mute"), false),
    onOff("powerSwitch", LUMBRA_TEXT("System", "Power"), true),
    spinner(),
};

constexpr std::array OVERRIDE{
    times(10, onOff("ovrSwitch", LUMBRA_TEXT("System", "Override"), false)),
    spinner(),
};

constexpr std::array SCENE{
    itemPicker("scenePicker", LUMBRA_TEXT("System", "Scene")),
    button("loadSceneButton", LUMBRA_TEXT("System", "Recall")),
    button("saveSceneButton", LUMBRA_TEXT("System", "Store")),
    spinner(),
};

const std::array SCREENS{
    Screen{"zone", LUMBRA_TEXT("System", "Zones"), ZONE},
    Screen{"output", LUMBRA_TEXT("System", "Outputs"), OUTPUT},
    Screen{"group", LUMBRA_TEXT("System", "Groups"), GROUP},
    Screen{"override", LUMBRA_TEXT("System", "Overrides"), OVERRIDE},
    Screen{"scene", LUMBRA_TEXT("System", "Scenes"), SCENE},
};

std::shared_ptr<Control> build(const LayoutLine& line) {
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
        control = std::make_shared<Label>(line.reading);
        break;
    case Kind::ActivityIndicator:
        control = std::make_shared<ActivityIndicator>();
        break;
    case Kind::Button:
        control = std::make_shared<Button>(std::string(line.text));
        break;
    }
    control->setEnabled(line.enabled);
    if (line.sends && line.kind != Kind::ActivityIndicator && line.kind != Kind::Button)
        control->setKnown(false);
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
            view->add({std::move(name), std::move(caption), build(line), line.sends});
        }
    }
    return view;
}

} // namespace lumbra

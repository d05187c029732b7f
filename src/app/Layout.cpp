#include "app/Layout.h"

#include "model/FrequencyScale.h"
#include "model/Outputs.h"
#include "model/Zones.h"
#include "screens/OverrideViewController.h"
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
    std::int64_t count = 1;
};

struct Screen {
    std::string_view name;
    std::string_view title;
    std::span<const LayoutLine> lines;
};

// By FilterType.
constexpr std::array FILTER_TYPES{LUMBRA_TEXT("System", "Bypass"),     LUMBRA_TEXT("System", "High-pass"),
                                  LUMBRA_TEXT("System", "High shelf"), LUMBRA_TEXT("System", "Low-pass"),
                                  LUMBRA_TEXT("System", "Low shelf"),  LUMBRA_TEXT("System", "Parametric")};
static_assert(FILTER_TYPES.size() == FILTERS.size());

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
constexpr LayoutLine volumeSlider() {
    return slider("volumeSlider", LUMBRA_TEXT("System", "Volume"), Items::min_volume,
                  Items::max_possible_volume, Items::FIRST_VOLUME);
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
constexpr LayoutLine times(std::int64_t count, LayoutLine line) {
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
    volumeSlider(),
    label("volumeLabel", percentOfVolume(Items::FIRST_VOLUME)),
    onOff("muteSwitch", LUMBRA_TEXT("System", "Mute"), false),
    onOff("loudnessSwitch", LUMBRA_TEXT("System", "Loudness"), false),
    slider("bassSlider", LUMBRA_TEXT("System", "Bass"), Zones::min_bass, Zones::max_bass, 0),
    label("bassLabel", percentOfTone(0)),
    slider("trebleSlider", LUMBRA_TEXT("System", "Treble"), Zones::min_treble, Zones::max_treble, 0),
    label("trebleLabel", percentOfTone(0)),
    spinner(),
};

const std::array OUTPUT{
    itemPicker("outputPicker", LUMBRA_TEXT("System", "Output")),
    picker("sourcePicker", LUMBRA_TEXT("System", "Input")),
    volumeSlider(),
    label("volumeLabel", decibels(Items::FIRST_VOLUME)),
    onOff("muteSwitch", LUMBRA_TEXT("System", "Mute"), false),
    onOff("powerSwitch", LUMBRA_TEXT("System", "Power"), true),
    times(Outputs::bands,
          {.name = "filterType", .caption = LUMBRA_TEXT("System", "Type"), .kind = Kind::Segmented}),
    times(Outputs::bands,
          disabled(slider("filterFreq", LUMBRA_TEXT("System", "Frequency"),
                          frequencyToSlider(Outputs::SHOWN_FREQ_MIN), frequencyToSlider(Outputs::FREQ_MAX),
                          frequencyToSlider(Outputs::FIRST_FREQ)))),
    times(Outputs::bands, label("freqLabel", hertz(Outputs::FIRST_FREQ))),
    times(Outputs::bands, disabled(slider("filterGain", LUMBRA_TEXT("System", "Gain"), Outputs::GAIN_MIN,
                                          Outputs::GAIN_MAX, 0))),
    times(Outputs::bands, label("gainLabel", decibels(0))),
    spinner(),
};

constexpr std::array GROUP{
    itemPicker("groupPicker", LUMBRA_TEXT("System", "Group")),
    picker("sourcePicker", LUMBRA_TEXT("System", "Input")),
    volumeSlider(),
    label("volumeLabel", percentOfVolume(Items::FIRST_VOLUME)),
    onOff("muteSwitch", LUMBRA_TEXT("System", "Mute"), false),
    onOff("powerSwitch", LUMBRA_TEXT("System", "Power"), true),
    spinner(),
};

constexpr std::array OVERRIDE{
    times(OverrideViewController::size, onOff("ovrSwitch", LUMBRA_TEXT("System", "Override"), false)),
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
        for (std::int64_t number = 1; number <= line.count; ++number) {
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

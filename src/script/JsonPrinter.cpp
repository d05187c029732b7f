#include "script/JsonPrinter.h"

#include "script/Command.h"
#include "toolkit/Controls.h"

#include <cstddef>
#include <numeric>
#include <string>
#include <utility>
#include <vector>

namespace lumbra::script {

namespace {

void texts(Json& json, std::string_view name, const std::vector<std::string>& values) {
    json.array(name, values, [](Json& array, const std::string& value) { array.text(value); });
}

void tabs(Json& json, const TabBarController& tabs) {
    json.field("screen", tabs.selectedViewController()->view().name());
    json.array("tabs", tabs.viewControllers(),
               [](Json& array, const auto& controller) { array.text(controller->view().name()); });
    json.field("selected", tabs.selectedIndex());
}

void alertFields(Json& json, const Alert& alert) {
    json.field("title", alert.title.english()).field("message", alert.message.english());
    json.field("button", alert.button.english());
}

void itemFields(Json& json, std::size_t row, const ItemRow& item) {
    json.field("row", static_cast<std::int64_t>(row)).field("name", item.name).field("input", item.input);
    json.field("volume", item.volume).field("text", item.level.text()).field("mute", item.mute);
    if (item.power)
        json.field("power", *item.power);
    const std::pair<const char*, bool> reported[] = {{"input", item.known.input},
                                                     {"volume", item.known.volume},
                                                     {"mute", item.known.mute},
                                                     {"power", item.power && item.known.power}};
    json.array("known", reported, [](Json& array, const auto& value) {
        if (value.second)
            array.text(value.first);
    });
    if (!item.askedVolume && !item.askedInput)
        return;
    json.object("asked", [&](Json& asked) {
        if (item.askedVolume)
            asked.field("volume", *item.askedVolume);
        if (item.askedLevel)
            asked.field("text", item.askedLevel->text());
        if (item.askedInput)
            asked.field("input", *item.askedInput);
    });
}

/// The members of a control's state that its kind has.
struct StateWriter {
    Json& json;

    void operator()(const Picker& picker) const {
        texts(json.field("kind", "picker"), "rows", picker.rows());
        json.field("selected", picker.selected()).field("color", Picker::COLOR);
    }
    void operator()(const Slider& slider) const {
        json.field("kind", "slider").field("value", slider.value()).field("min", slider.minimum());
        json.field("max", slider.maximum()).field("enabled", slider.isEnabled());
    }
    void operator()(const Switch& onOff) const {
        json.field("kind", "switch").field("on", onOff.isOn()).field("enabled", onOff.isEnabled());
    }
    void operator()(const SegmentedControl& segmented) const {
        texts(json.field("kind", "segmented"), "segments", segmented.segments());
        json.field("selected", segmented.selected()).field("enabled", segmented.isEnabled());
    }
    void operator()(const Label& label) const { json.field("kind", "label").field("text", label.text()); }
    void operator()(const ActivityIndicator& indicator) const {
        json.field("kind", "activityIndicator").field("animating", indicator.isAnimating());
    }
    void operator()(const Button& button) const {
        json.field("kind", "button").field("title", button.title());
    }
};

void stateFields(Json& json, const View::Item& item, const Hand* hand) {
    visit(std::as_const(*item.control), StateWriter{json});
    json.field("caption", item.caption);
    if (const auto known = item.control->known())
        json.field("known", *known);
    if (item.control->kind() != Slider::KIND)
        return;
    const auto& slider = static_cast<const Slider&>(*item.control);
    if (const auto reading = slider.readingOf(slider.value()))
        json.field("text", reading->text());
    if (const auto limit = slider.limit())
        json.field("limit", *limit);
    if (hand && hand->isHeld())
        json.field("held", true).field("wish", hand->shown());
}

} // namespace

void JsonPrinter::done(std::string_view command) {
    line([&](Json& json) { json.field("reply", command).field("ok", true); });
}

void JsonPrinter::failed(std::string_view command, std::string_view error) {
    line([&](Json& json) { json.field("reply", command).field("ok", false).field("error", error); });
}

void JsonPrinter::state(std::string_view command, const State& state) {
    line([&](Json& json) {
        tabs(json.field("reply", command).field("ok", true), state.tabs);
        json.object("controls", [&](Json& controls) {
            for (const auto& item : state.tabs.selectedViewController()->view().items())
                controls.object(item.name, [&](Json& fields) {
                    stateFields(fields, item, state.hands.find(*item.control));
                });
        });
        if (state.alert)
            json.object("alert", [&](Json& fields) { alertFields(fields, *state.alert); });
        else
            json.null("alert");
        json.field("link", nameOf(state.link)).field("status", nameOf(state.status));
        json.field("address", state.address).field("unit", state.unit).field("retrying", state.retrying);
        if (!state.items)
            return;
        std::vector<std::size_t> rows(state.items->rowCount());
        std::iota(rows.begin(), rows.end(), std::size_t{0});
        json.array("items", rows, [&](Json& array, std::size_t row) {
            array.element([&](Json& fields) { itemFields(fields, row, state.items->row(row)); });
        });
    });
}

void JsonPrinter::settings(std::string_view command, std::span<const StoredSetting> settings) {
    line([&](Json& json) {
        json.field("reply", command).field("ok", true).object("settings", [&](Json& stored) {
            for (const auto& [key, value] : settings) {
                if (value)
                    std::visit([&, name = key](const auto& plain) { stored.field(name, plain); }, *value);
                else
                    stored.null(key);
            }
        });
    });
}

void JsonPrinter::help(std::string_view command, std::span<const Command> commands) {
    line([&](Json& json) {
        json.field("reply", command).field("ok", true);
        json.array("commands", commands, [](Json& array, const Command& entry) {
            array.element([&](Json& fields) {
                fields.field("name", entry.name()).field("usage", entry.usage).field("help", entry.help);
            });
        });
    });
}

void JsonPrinter::screenChanged(const TabBarController& tabBar) {
    line([&](Json& json) { tabs(json.field("event", "screen"), tabBar); });
}

void JsonPrinter::controlChanged(const View& screen, const View::Item& item, const Hand* hand) {
    line([&](Json& json) {
        json.field("event", "control").field("screen", screen.name()).field("control", item.name);
        json.object("state", [&](Json& fields) { stateFields(fields, item, hand); });
    });
}

void JsonPrinter::alertAskedFor(const Alert& alert) {
    line([&](Json& json) { alertFields(json.field("event", "alert"), alert); });
}

void JsonPrinter::alertWithdrawn() {
    line([](Json& json) { json.field("event", "alert").null("title"); });
}

void JsonPrinter::linkChanged(LinkState link) {
    line([&](Json& json) { json.field("event", "link").field("link", nameOf(link)); });
}

void JsonPrinter::statusChanged(ScreenStatus status) {
    line([&](Json& json) { json.field("event", "status").field("status", nameOf(status)); });
}

void JsonPrinter::itemChanged(const View& screen, std::size_t row, const ItemRow& item) {
    line([&](Json& json) {
        json.field("event", "item").field("screen", screen.name());
        json.object("item", [&](Json& fields) { itemFields(fields, row, item); });
    });
}

} // namespace lumbra::script

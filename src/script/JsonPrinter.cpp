#include "script/JsonPrinter.h"

#include "script/Command.h"
#include "script/Numbers.h"
#include "script/Utf8.h"
#include "toolkit/Controls.h"

#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <cstddef>
#include <numeric>
#include <string>
#include <utility>
#include <vector>

namespace lumbra::script {

namespace {

/// Writes the members of one object.
class Json {
public:
    explicit Json(rapidjson::StringBuffer& buffer) : writer_(buffer) {}

    template <class Value>
    Json& field(std::string_view name, const Value& value) {
        text(name);
        put(value);
        return *this;
    }
    template <class Write>
    Json& object(std::string_view name, Write write) {
        text(name);
        element(write);
        return *this;
    }
    template <class Write>
    void element(Write write) {
        writer_.StartObject();
        write(*this);
        writer_.EndObject();
    }
    template <class Range, class Write>
    Json& array(std::string_view name, const Range& range, Write write) {
        text(name);
        writer_.StartArray();
        for (const auto& element : range)
            write(*this, element);
        writer_.EndArray();
        return *this;
    }
    Json& null(std::string_view name) {
        text(name);
        writer_.Null();
        return *this;
    }
    void text(std::string_view value) {
        writer_.String(value.data(), static_cast<rapidjson::SizeType>(value.size()));
    }

private:
    void put(std::string_view value) { text(value); }
    void put(const std::string& value) { text(value); }
    void put(const char* value) { text(value); }
    void put(bool value) { writer_.Bool(value); }
    void put(int value) { writer_.Int(value); }
    void put(std::int64_t value) { writer_.Int64(value); }
    void put(float value) {
        const auto number = decimalOf(value);
        writer_.RawValue(number.data(), number.size(), rapidjson::kNumberType);
    }

    rapidjson::Writer<rapidjson::StringBuffer> writer_;
};

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
}

/// The members of a control's state.
struct StateWriter {
    Json& json;

    void operator()(const Picker& picker) const {
        texts(json.field("kind", "picker"), "rows", picker.rows());
        json.field("selected", picker.selected()).field("color", nameOf(picker.color()));
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

} // namespace

template <class Write>
void JsonPrinter::line(Write write) {
    rapidjson::StringBuffer buffer;
    Json(buffer).element(write);
    buffer.Put('\n');
    output_.write(escapedInJson({buffer.GetString(), buffer.GetSize()}));
}

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
                    visit(std::as_const(*item.control), StateWriter{fields});
                });
        });
        if (state.alert)
            json.object("alert", [&](Json& fields) { alertFields(fields, *state.alert); });
        else
            json.null("alert");
        json.field("link", nameOf(state.link)).field("status", nameOf(state.status));
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

void JsonPrinter::controlChanged(const View& screen, const View::Item& item) {
    line([&](Json& json) {
        json.field("event", "control").field("screen", screen.name()).field("control", item.name);
        json.object("state", [&](Json& fields) { visit(std::as_const(*item.control), StateWriter{fields}); });
    });
}

void JsonPrinter::alertAskedFor(const Alert& alert) {
    line([&](Json& json) { alertFields(json.field("event", "alert"), alert); });
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

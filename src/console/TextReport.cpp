#include "console/TextReport.h"

#include "console/ConsoleCommand.h"
#include "console/Numbers.h"
#include "console/Utf8.h"
#include "toolkit/ActivityIndicator.h"
#include "toolkit/Button.h"
#include "toolkit/Label.h"
#include "toolkit/Picker.h"
#include "toolkit/SegmentedControl.h"
#include "toolkit/Slider.h"
#include "toolkit/Switch.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace lumbra {

namespace {

/// Lines of cells, each column as wide as its widest cell.
template <std::size_t COLUMNS>
class Table {
public:
    using Row = std::array<std::string, COLUMNS>;

    void add(Row row) { rows_.push_back(std::move(row)); }

    std::string text() const {
        std::array<std::size_t, COLUMNS> widths{};
        for (const auto& row : rows_)
            for (std::size_t column = 0; column < COLUMNS; ++column)
                widths[column] = std::max(widths[column], row[column].size());
        std::string text;
        for (const auto& row : rows_) {
            for (std::size_t column = 0; column < COLUMNS; ++column) {
                text += "  " + row[column];
                if (column + 1 < COLUMNS)
                    text.append(widths[column] - row[column].size(), ' ');
            }
            text.erase(text.find_last_not_of(' ') + 1);
            text += '\n';
        }
        return text;
    }

private:
    std::vector<Row> rows_;
};

std::string numbered(std::size_t position, std::string_view text) {
    return std::to_string(position) + " " + quotedForTerminal(text);
}

/// All texts with their positions, the selected one in brackets.
std::string choices(const std::vector<std::string>& texts, int selected) {
    std::string list;
    for (std::size_t position = 0; position < texts.size(); ++position) {
        const bool isSelected = static_cast<int>(position) == selected;
        list += list.empty() ? "" : " ";
        list += (isSelected ? "[" : "") + numbered(position, texts[position]) + (isSelected ? "]" : "");
    }
    return list.empty() ? "no rows" : list;
}

std::string choice(const std::vector<std::string>& texts, int selected) {
    if (selected < 0)
        return "no rows";
    return numbered(static_cast<std::size_t>(selected), texts.at(static_cast<std::size_t>(selected))) +
           " of " + std::to_string(texts.size());
}

std::string_view kindOf(const Control& control) {
    switch (control.kind()) {
    case Control::Kind::Picker:
        return "picker";
    case Control::Kind::Slider:
        return "slider";
    case Control::Kind::Switch:
        return "switch";
    case Control::Kind::Segmented:
        return "segmented";
    case Control::Kind::Label:
        return "label";
    case Control::Kind::ActivityIndicator:
        return "indicator";
    case Control::Kind::Button:
        return "button";
    }
    return {};
}

/// What the control shows; of rows and segments all, or only the selected one.
std::string shownBy(const Control& control, bool all) {
    const auto list = all ? choices : choice;
    switch (control.kind()) {
    case Control::Kind::Picker: {
        const auto& picker = static_cast<const Picker&>(control);
        return list(picker.rows(), picker.selected());
    }
    case Control::Kind::Slider: {
        const auto& slider = static_cast<const Slider&>(control);
        return decimalOf(slider.value()) + " (" + decimalOf(slider.minimum()) + " to " +
               decimalOf(slider.maximum()) + ")";
    }
    case Control::Kind::Switch:
        return static_cast<const Switch&>(control).isOn() ? "on" : "off";
    case Control::Kind::Segmented: {
        const auto& segmented = static_cast<const SegmentedControl&>(control);
        return list(segmented.segments(), segmented.selected());
    }
    case Control::Kind::Label:
        return quotedForTerminal(static_cast<const Label&>(control).text());
    case Control::Kind::ActivityIndicator:
        return static_cast<const ActivityIndicator&>(control).isAnimating() ? "turning" : "stopped";
    case Control::Kind::Button:
        return quotedForTerminal(static_cast<const Button&>(control).title());
    }
    return {};
}

std::string stateOf(const Control& control, bool all) {
    return shownBy(control, all) + (control.isEnabled() ? "" : ", disabled");
}

/// The tabs, the selected one in brackets.
std::string tabsOf(const TabBarController& tabs) {
    std::string list;
    for (const auto& controller : tabs.viewControllers()) {
        const bool isSelected = controller == tabs.selectedViewController();
        list += (list.empty() ? "" : " ") +
                (isSelected ? "[" + controller->view().name() + "]" : controller->view().name());
    }
    return list;
}

std::string textOf(const Alert& alert) {
    return escapedForTerminal(alert.title) + ": " + escapedForTerminal(alert.message) + " [" +
           escapedForTerminal(alert.button) + "]";
}

std::string textOf(const std::optional<SettingValue>& value) {
    if (!value)
        return "absent";
    if (const auto* text = std::get_if<std::string>(&*value))
        return quotedForTerminal(*text);
    if (const auto* number = std::get_if<std::int64_t>(&*value))
        return std::to_string(*number);
    return std::get<bool>(*value) ? "true" : "false";
}

} // namespace

void TextReport::done(std::string_view) {
    output_.write("ok\n");
}

void TextReport::failed(std::string_view, std::string_view error) {
    output_.write("error: " + escapedForTerminal(error) + "\n");
}

void TextReport::state(std::string_view, const TabBarController& tabs, const std::optional<Alert>& alert,
                       LinkState link) {
    const auto& view = tabs.selectedViewController()->view();
    std::string text =
        view.name() + " screen, link " + std::string(nameOf(link)) + "; tabs: " + tabsOf(tabs) + "\n";
    Table<3> table;
    for (const auto& item : view.items())
        table.add({item.name, std::string(kindOf(*item.control)), stateOf(*item.control, true)});
    text += table.text();
    if (alert)
        text += "alert: " + textOf(*alert) + "\n";
    output_.write(text);
}

void TextReport::settings(std::string_view, std::span<const StoredSetting> settings) {
    Table<2> table;
    for (const auto& [key, value] : settings)
        table.add({std::string(key), textOf(value)});
    output_.write(table.text());
}

void TextReport::help(std::string_view, std::span<const ConsoleCommand> commands) {
    Table<2> table;
    for (const auto& command : commands)
        table.add({std::string(command.usage), std::string(command.help)});
    output_.write(table.text());
}

void TextReport::screenChanged(const TabBarController& tabs) {
    output_.write("screen: " + tabsOf(tabs) + "\n");
}

void TextReport::controlChanged(const View&, const View::Item& item) {
    // An answer of the unit changes row by row what is one short line here: once is enough.
    auto line = item.name + ": " + stateOf(*item.control, false) + "\n";
    if (line == lastChange_)
        return;
    output_.write(line);
    lastChange_ = std::move(line);
}

void TextReport::alertAskedFor(const Alert& alert) {
    output_.write("alert: " + textOf(alert) + "\n");
}

void TextReport::linkChanged(LinkState link) {
    output_.write("link: " + std::string(nameOf(link)) + "\n");
}

} // namespace lumbra

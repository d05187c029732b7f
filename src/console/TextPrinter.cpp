#include "console/TextPrinter.h"

#include "script/Command.h"
#include "text/Decimal.h"
#include "text/Utf8.h"
#include "toolkit/Controls.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace lumbra::console {

using namespace script;

namespace {

/// The number of characters in UTF-8 text.
std::size_t widthOf(std::string_view text) {
    return static_cast<std::size_t>(
        std::count_if(text.begin(), text.end(), [](char byte) { return (byte & 0xC0) != 0x80; }));
}

/// A table, each column as wide as its widest cell.
template <std::size_t COLUMNS>
class Table {
public:
    using Row = std::array<std::string, COLUMNS>;

    void add(Row row) { rows_.push_back(std::move(row)); }

    std::string text() const {
        std::array<std::size_t, COLUMNS> widths{};
        for (const auto& row : rows_)
            for (std::size_t column = 0; column < COLUMNS; ++column)
                widths[column] = std::max(widths[column], widthOf(row[column]));
        std::string text;
        for (const auto& row : rows_) {
            for (std::size_t column = 0; column < COLUMNS; ++column) {
                text += "  " + row[column];
                if (column + 1 < COLUMNS)
                    text.append(widths[column] - widthOf(row[column]), ' ');
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

struct Shown {
    std::string kind;
    std::string state;
};

/// A control as text. Of rows and segments all are listed, or only the selected one.
Shown shownBy(const Control& control, const Hand* hand, bool all) {
    const auto list = all ? choices : choice;
    auto shown = visit(
        control, Overloads{
                     [&](const Picker& picker) -> Shown {
                         return {"picker", list(picker.rows(), picker.selected())};
                     },
                     [](const Slider& slider) -> Shown {
                         return {"slider", decimalOf(slider.value()) + " (" + decimalOf(slider.minimum()) +
                                               " to " + decimalOf(slider.maximum()) + ")"};
                     },
                     [](const Switch& onOff) -> Shown {
                         return {"switch", onOff.isOn() ? "on" : "off"};
                     },
                     [&](const SegmentedControl& segmented) -> Shown {
                         return {"segmented", list(segmented.segments(), segmented.selected())};
                     },
                     [](const Label& label) -> Shown {
                         return {"label", quotedForTerminal(label.text())};
                     },
                     [](const ActivityIndicator& indicator) -> Shown {
                         return {"indicator", indicator.isAnimating() ? "turning" : "stopped"};
                     },
                     [](const Button& button) -> Shown {
                         return {"button", quotedForTerminal(button.title())};
                     },
                 });
    if (!control.isEnabled())
        shown.state += ", disabled";
    if (hand && hand->isHeld())
        shown.state += ", held at " + decimalOf(hand->shown());
    if (control.known() == false)
        shown.state += ", not reported";
    return shown;
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
    return escapedForTerminal(alert.title.english()) + ": " + escapedForTerminal(alert.message.english()) +
           " [" + escapedForTerminal(alert.button.english()) + "]";
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

constexpr std::size_t ITEM_COLUMNS = 6;

/// `value`, or a dash where it has never been reported, and what was asked for and not reported since.
std::string withAsked(bool known, const std::string& value, const std::optional<std::string>& asked) {
    return (known ? value : "–") + (asked ? " (asked: " + *asked + ")" : "");
}

std::array<std::string, ITEM_COLUMNS> cellsOf(std::size_t row, const ItemRow& item) {
    return {std::to_string(row),
            quotedForTerminal(item.name),
            withAsked(item.known.input, quotedForTerminal(item.input),
                      item.askedInput ? std::optional(quotedForTerminal(*item.askedInput)) : std::nullopt),
            withAsked(item.known.volume, item.level.text(),
                      item.askedLevel ? std::optional(item.askedLevel->text()) : std::nullopt),
            item.mute ? "muted" : "",
            item.power == false ? "power off" : ""};
}

} // namespace

void TextPrinter::done(std::string_view) {
    output_.write("ok\n");
}

void TextPrinter::failed(std::string_view, std::string_view error) {
    output_.write("error: " + escapedForTerminal(error) + "\n");
}

void TextPrinter::state(std::string_view, const State& state) {
    const auto& view = state.tabs.selectedViewController()->view();
    std::string text = view.name() + " screen, link " + std::string(nameOf(state.link)) + " (" +
                       escapedForTerminal(state.address) + ", unit " + std::to_string(state.unit) +
                       (state.retrying ? ", kept connected" : "") + "); tabs: " + tabsOf(state.tabs) + "\n";
    Table<3> table;
    for (const auto& item : view.items()) {
        auto [kind, shown] = shownBy(*item.control, state.hands.find(*item.control), true);
        table.add({item.name, std::move(kind), std::move(shown)});
    }
    text += table.text();
    if (state.alert)
        text += "alert: " + textOf(*state.alert) + "\n";
    text += "status: " + std::string(nameOf(state.status)) + "\n";
    if (state.items) {
        Table<ITEM_COLUMNS> items;
        for (std::size_t row = 0; row < state.items->rowCount(); ++row)
            items.add(cellsOf(row, state.items->row(row)));
        text += "items:\n" + items.text();
    }
    output_.write(text);
}

void TextPrinter::settings(std::string_view, std::span<const StoredSetting> settings) {
    Table<2> table;
    for (const auto& [key, value] : settings)
        table.add({std::string(key), textOf(value)});
    output_.write(table.text());
}

void TextPrinter::help(std::string_view, std::span<const Command> commands) {
    Table<2> table;
    for (const auto& command : commands)
        table.add({std::string(command.usage), std::string(command.help)});
    output_.write(table.text());
}

void TextPrinter::screenChanged(const TabBarController& tabs) {
    output_.write("screen: " + tabsOf(tabs) + "\n");
    lastChange_.clear();
}

void TextPrinter::controlChanged(const View&, const View::Item& item, const Hand* hand) {
    // An answer of the unit may change a picker row by row. The short line is the same each time and is
    // printed once.
    auto line = item.name + ": " + shownBy(*item.control, hand, false).state + "\n";
    if (line == lastChange_)
        return;
    output_.write(line);
    lastChange_ = std::move(line);
}

void TextPrinter::alertAskedFor(const Alert& alert) {
    output_.write("alert: " + textOf(alert) + "\n");
}

void TextPrinter::alertWithdrawn() {
    output_.write("alert: gone\n");
}

void TextPrinter::linkChanged(LinkState link) {
    output_.write("link: " + std::string(nameOf(link)) + "\n");
}

void TextPrinter::statusChanged(ScreenStatus status) {
    output_.write("status: " + std::string(nameOf(status)) + "\n");
}

void TextPrinter::itemChanged(const View&, std::size_t row, const ItemRow& item) {
    Table<ITEM_COLUMNS> table;
    table.add(cellsOf(row, item));
    output_.write("item:" + table.text());
}

} // namespace lumbra::console

#include "console/Completion.h"

#include "app/Settings.h"
#include "script/CommandInterpreter.h"
#include "script/Keywords.h"
#include "script/Words.h"
#include "toolkit/Picker.h"

#include <algorithm>
#include <optional>
#include <span>

namespace lumbra::console {

using namespace script;

namespace {

std::optional<Control::Kind> kindOf(Argument argument) {
    switch (argument) {
    case Argument::Picker:
        return Control::Kind::Picker;
    case Argument::Slider:
        return Control::Kind::Slider;
    case Argument::Switch:
        return Control::Kind::Switch;
    case Argument::Segmented:
        return Control::Kind::Segmented;
    case Argument::Button:
        return Control::Kind::Button;
    default:
        return std::nullopt;
    }
}

/// A row's text as a word; empty if it can't be typed.
std::string wordFor(const std::string& text) {
    std::string quoted = "\"=";
    for (const char c : text)
        quoted += c == '"' || c == '\\' ? std::string{'\\', c} : std::string{c};
    quoted += '"';
    for (const auto& word : {"=" + text, quoted})
        if (splitWords(word).words == std::vector{"=" + text} &&
            std::none_of(text.begin(), text.end(),
                         [](char c) { return static_cast<unsigned char>(c) < ' '; }))
            return word;
    return {};
}

} // namespace

std::vector<std::string> completions(Application& application, std::string_view line) {
    const auto start = line.find_last_of(" \t") + 1;
    const auto begun = line.substr(start);
    const auto words = splitWords(line.substr(0, start)).words;
    std::span before(words);

    std::vector<std::string> found;
    const auto offer = [&](std::string_view word) {
        if (!word.empty() && word.starts_with(begun))
            found.emplace_back(word);
    };
    const auto& view = application.tabs().selectedViewController()->view();
    const auto offerRows = [&](const Control* picker) {
        if (picker && picker->kind() == Picker::KIND)
            for (const auto& text : static_cast<const Picker&>(*picker).rows())
                offer(wordFor(text));
    };
    const auto offerItems = [&] {
        for (const auto& item : view.items())
            if (!item.sends)
                offerRows(item.control.get());
    };
    // Behind a screen, and perhaps an item, `at` has a command of its own.
    if (before.size() >= 2 && before[0] == "at") {
        const bool namesItem = before.size() > 2 && before[2].starts_with('=');
        if (before.size() == 2)
            offerItems();
        before = before.subspan(namesItem ? 3 : 2);
    }
    if (before.empty()) {
        for (const auto& command : CommandInterpreter::commands())
            offer(command.name());
        return found;
    }
    const auto* command = CommandInterpreter::find(before[0]);
    if (!command || before.size() > command->kinds.size())
        return found;
    const auto argument = command->kinds[before.size() - 1];
    switch (argument) {
    case Argument::Tab:
        for (const auto& controller : application.tabs().viewControllers())
            offer(controller->view().name());
        break;
    case Argument::Row:
        offerRows(view.find(before[1]).get());
        break;
    case Argument::Item:
        offerItems();
        break;
    case Argument::Position:
        std::for_each(SWITCH_POSITIONS.begin(), SWITCH_POSITIONS.end(), offer);
        break;
    case Argument::Watching:
        std::for_each(WATCHING.begin(), WATCHING.end(), offer);
        break;
    case Argument::SettingKey:
        for (const auto& entry : SETTINGS)
            offer(entry.key);
        break;
    case Argument::StoredValue:
        if (const auto* entry = findSetting(before[1]); entry && entry->type == SettingEntry::Type::Flag)
            std::for_each(FLAGS.begin(), FLAGS.end(), offer);
        break;
    case Argument::Event:
        for (const auto& event : LIFECYCLE_EVENTS)
            offer(event.name);
        break;
    case Argument::Awaited:
        std::for_each(AWAITED.begin(), AWAITED.end(), offer);
        break;
    default:
        for (const auto& item : view.items())
            if (kindOf(argument) == item.control->kind())
                offer(item.name);
        break;
    }
    return found;
}

} // namespace lumbra::console

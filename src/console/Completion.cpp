#include "console/Completion.h"

#include "app/Settings.h"
#include "script/CommandInterpreter.h"
#include "script/CommandWords.h"
#include "script/Words.h"

#include <algorithm>
#include <optional>

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

} // namespace

std::vector<std::string> completions(Application& application, std::string_view line) {
    const auto start = line.find_last_of(" \t") + 1;
    const auto begun = line.substr(start);
    const auto before = splitWords(line.substr(0, start)).words;

    std::vector<std::string> words;
    const auto offer = [&](std::string_view word) {
        if (word.starts_with(begun))
            words.emplace_back(word);
    };
    if (before.empty()) {
        for (const auto& command : CommandInterpreter::commands())
            offer(command.name());
        return words;
    }
    const auto* command = CommandInterpreter::find(before[0]);
    if (!command || before.size() > command->kinds.size())
        return words;
    const auto argument = command->kinds[before.size() - 1];
    switch (argument) {
    case Argument::Tab:
        for (const auto& controller : application.tabs().viewControllers())
            offer(controller->view().name());
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
        for (const auto& item : application.tabs().selectedViewController()->view().items())
            if (kindOf(argument) == item.control->kind())
                offer(item.name);
        break;
    }
    return words;
}

} // namespace lumbra::console

#include "script/CommandInterpreter.h"

#include "app/Settings.h"
#include "script/CommandWords.h"
#include "script/Numbers.h"
#include "script/Words.h"
#include "toolkit/Controls.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <optional>
#include <utility>

namespace lumbra::script {

struct CommandTable {
    using I = CommandInterpreter;
    using A = Argument;
    static constexpr std::array<Command, 16> COMMANDS{{
        {"help", "lists the commands", 0, 0, {}, &I::help},
        {"state", "shows the screen's controls, items and status, alert and link", 0, 0, {}, &I::state},
        {"tab NAME", "selects a tab by its name or its position, counted from 0", 1, 1, {A::Tab}, &I::tab},
        {"pick CONTROL ROW", "turns a picker to a row, from 0", 2, 2, {A::Picker, A::Number}, &I::pick},
        {"slide CONTROL VALUE", "moves a slider", 2, 2, {A::Slider, A::Number}, &I::slide},
        {"switch CONTROL on|off|toggle", "flips a switch", 2, 2, {A::Switch, A::Position}, &I::flip},
        {"segment CONTROL INDEX", "taps a segment, from 0", 2, 2, {A::Segmented, A::Number}, &I::segment},
        {"press CONTROL", "presses a button", 1, 1, {A::Button}, &I::press},
        {"dismiss", "presses the button of the alert on show", 0, 0, {}, &I::dismiss},
        {"watch on|off", "prints each item's changes, or no longer", 1, 1, {A::Watching}, &I::watch},
        {"get [KEY]", "shows the stored settings, or one", 0, 1, {A::SettingKey}, &I::get},
        {"set KEY VALUE", "stores a setting; see app", 2, 2, {A::SettingKey, A::StoredValue}, &I::set},
        {"unset KEY", "removes a stored setting; see app", 1, 1, {A::SettingKey}, &I::unset},
        {"app EVENT", "away, back, or one step of these; back reads the settings", 1, 1, {A::Event}, &I::app},
        {"wait SECONDS|answer|open|closed [SECONDS]",
         "lets time pass, or waits, at most 5 s unless told",
         1,
         2,
         {A::Awaited, A::Number},
         &I::wait},
        {"quit", "ends the application", 0, 0, {}, &I::quit},
    }};
};

namespace {

using namespace std::chrono_literals;

/// The time limit of a wait unless the command gives one.
constexpr std::optional<std::chrono::nanoseconds> LONGEST_ANSWER = 5s;

/// "one", "one and two", "one, two and three".
template <class Range, class NameOf>
std::string listed(const Range& range, NameOf nameOfElement) {
    std::string list;
    std::size_t left = range.size();
    for (const auto& element : range) {
        list += nameOfElement(element);
        --left;
        list += left == 0 ? "" : left == 1 ? " and " : ", ";
    }
    return list;
}

std::string withArticle(std::string_view noun) {
    return (std::string_view("aeiou").find(noun.front()) == std::string_view::npos ? "a " : "an ") +
           std::string(noun);
}

/// Selects one of the `count` things called `what` by the position in `text`.
template <class Move>
Outcome choose(const std::string& control, std::string_view what, const std::string& text, std::size_t count,
               Move moveTo) {
    const auto position = parseWhole(text);
    if (!position && (text.empty() || text.find_first_not_of("+-0123456789") != std::string::npos))
        return Failed{control + ": \"" + text + "\" is not a whole number"};
    if (!position || *position < 0 || *position >= static_cast<std::int64_t>(count)) {
        const auto there = count == 0   ? " at all yet"
                           : count == 1 ? "; there is only 0"
                                        : "; there are 0 to " + std::to_string(count - 1);
        return Failed{control + ": no " + std::string(what) + " " + text + there};
    }
    moveTo(static_cast<int>(*position));
    return Done{};
}

Failed noSuchSetting(const std::string& key) {
    return {key + ": no such setting; there are " +
            listed(SETTINGS, [](const SettingEntry& entry) { return entry.key; })};
}

} // namespace

CommandInterpreter::CommandInterpreter(Application& application, Printer& printer, Delegate delegate)
    : application_(application), printer_(printer), delegate_(std::move(delegate)) {}

std::span<const Command> CommandInterpreter::commands() {
    return CommandTable::COMMANDS;
}

const Command* CommandInterpreter::find(std::string_view name) {
    const auto found = std::find_if(commands().begin(), commands().end(),
                                    [&](const Command& known) { return known.name() == name; });
    return found == commands().end() ? nullptr : &*found;
}

void CommandInterpreter::execute(const Line& line) {
    assert(!isHeld() && !hasQuit_);
    if (line.text.starts_with('#'))
        return;
    auto [words, error] = splitWords(line.text);
    if (words.empty() && error.empty())
        return;
    command_ = words.empty() ? std::string() : words.front();
    const auto* command = find(command_);
    const auto arguments = Arguments(words).subspan(words.empty() ? 0 : 1);
    if (line.tooLong)
        answer(command_, Failed{"a line may have at most " + std::to_string(Line::MAX_LENGTH) + " bytes"});
    else if (!error.empty())
        answer(command_, Failed{error});
    else if (!command)
        answer(command_, Failed{command_ + ": no such command; \"help\" lists those there are"});
    else if (arguments.size() < command->fewest || arguments.size() > command->most)
        answer(command_, Failed{command->most == 0 ? command_ + " stands alone"
                                                   : "usage: " + std::string(command->usage)});
    else
        answer(command_, (this->*command->run)(arguments));
}

void CommandInterpreter::answer(std::string_view command, const Outcome& outcome) {
    if (std::holds_alternative<Done>(outcome))
        printer_.done(command);
    if (const auto* failed = std::get_if<Failed>(&outcome)) {
        hasFailed_ = true;
        printer_.failed(command, failed->error);
    }
}

void CommandInterpreter::terminate() {
    if (std::exchange(hasQuit_, true))
        return;
    application_.terminate();
    delegate_.terminated();
}

const View& CommandInterpreter::screen() const {
    return application_.tabs().selectedViewController()->view();
}

Outcome CommandInterpreter::help(Arguments) {
    printer_.help(command_, commands());
    return Answered{};
}

Outcome CommandInterpreter::state(Arguments) {
    printer_.state(command_,
                   {application_.tabs(), application_.alerts().shown(), application_.link().linkState(),
                    application_.status().status(), application_.items()});
    return Answered{};
}

Outcome CommandInterpreter::tab(Arguments arguments) {
    auto& tabs = application_.tabs();
    const auto& controllers = tabs.viewControllers();
    const auto& wanted = arguments[0];
    const auto named = std::find_if(controllers.begin(), controllers.end(), [&](const auto& controller) {
        return controller->view().name() == wanted;
    });
    const auto count = static_cast<std::int64_t>(controllers.size());
    const auto position =
        named != controllers.end() ? named - controllers.begin() : parseWhole(wanted).value_or(-1);
    if (position < 0 || position >= count)
        return Failed{wanted + ": no such tab; there are " +
                      listed(controllers, [](const auto& controller) { return controller->view().name(); })};
    tabs.selectByUser(static_cast<int>(position));
    return Done{};
}

template <class Type, class Move>
Outcome CommandInterpreter::move(const std::string& name, Move moveControl) {
    // An action may change the tabs, which must not destroy the control while it runs.
    const auto control = screen().find(name);
    if (!control)
        return Failed{name + ": no such control on the " + screen().name() + " screen"};
    if (control->kind() != Type::KIND)
        return Failed{name + ": " + withArticle(nameOf(control->kind())) + ", not " +
                      withArticle(nameOf(Type::KIND))};
    if (!control->isEnabled())
        return Failed{name + ": disabled"};
    return moveControl(static_cast<Type&>(*control));
}

Outcome CommandInterpreter::pick(Arguments arguments) {
    return move<Picker>(arguments[0], [&](Picker& picker) {
        return choose(arguments[0], "row", arguments[1], picker.rows().size(),
                      [&](int row) { picker.pickByUser(row); });
    });
}

Outcome CommandInterpreter::slide(Arguments arguments) {
    return move<Slider>(arguments[0], [&](Slider& slider) -> Outcome {
        const auto value = parseLevel(arguments[1]);
        if (!value)
            return Failed{arguments[0] + ": \"" + arguments[1] + "\" is not a number"};
        slider.slideByUser(*value);
        return Done{};
    });
}

Outcome CommandInterpreter::flip(Arguments arguments) {
    return move<Switch>(arguments[0], [&](Switch& control) -> Outcome {
        const auto& position = arguments[1];
        if (!contains(SWITCH_POSITIONS, position))
            return Failed{arguments[0] + ": no position \"" + position + "\"; there are on, off and toggle"};
        control.flipByUser(position == "toggle" ? !control.isOn() : position == "on");
        return Done{};
    });
}

Outcome CommandInterpreter::segment(Arguments arguments) {
    return move<SegmentedControl>(arguments[0], [&](SegmentedControl& control) {
        return choose(arguments[0], "segment", arguments[1], control.segments().size(),
                      [&](int segment) { control.tapByUser(segment); });
    });
}

Outcome CommandInterpreter::press(Arguments arguments) {
    return move<Button>(arguments[0], [](Button& button) {
        button.pressByUser();
        return Done{};
    });
}

Outcome CommandInterpreter::dismiss(Arguments) {
    if (!application_.alerts().dismissByUser())
        return Failed{"no alert is on show"};
    return Done{};
}

Outcome CommandInterpreter::watch(Arguments arguments) {
    if (!contains(WATCHING, arguments[0]))
        return Failed{"\"" + arguments[0] + "\" is neither on nor off"};
    delegate_.watchItems(arguments[0] == "on");
    return Done{};
}

Outcome CommandInterpreter::get(Arguments arguments) {
    std::vector<StoredSetting> stored;
    for (const auto& entry : SETTINGS)
        if (arguments.empty() || entry.key == arguments[0])
            stored.push_back({entry.key, application_.settings().value(entry.key)});
    if (stored.empty())
        return noSuchSetting(arguments[0]);
    printer_.settings(command_, stored);
    return Answered{};
}

Outcome CommandInterpreter::set(Arguments arguments) {
    const auto& key = arguments[0];
    const auto& text = arguments[1];
    const auto* entry = findSetting(key);
    if (!entry)
        return noSuchSetting(key);
    SettingValue value = text;
    if (entry->type == SettingEntry::Type::Integer) {
        const auto number = parseWhole(text);
        if (!number)
            return Failed{key + ": \"" + text + "\" is not a whole number"};
        value = *number;
    } else if (entry->type == SettingEntry::Type::Flag) {
        if (!contains(FLAGS, text))
            return Failed{key + ": \"" + text + "\" is neither true nor false"};
        value = text == "true";
    }
    application_.settings().setValue(key, std::move(value));
    application_.settings().flush();
    return Done{};
}

Outcome CommandInterpreter::unset(Arguments arguments) {
    if (!findSetting(arguments[0]))
        return noSuchSetting(arguments[0]);
    application_.settings().remove(arguments[0]);
    application_.settings().flush();
    return Done{};
}

Outcome CommandInterpreter::app(Arguments arguments) {
    const auto* event = std::find_if(LIFECYCLE_EVENTS.begin(), LIFECYCLE_EVENTS.end(),
                                     [&](const LifecycleEvent& known) { return known.name == arguments[0]; });
    if (event == LIFECYCLE_EVENTS.end())
        return Failed{arguments[0] + ": no such event; there are " +
                      listed(LIFECYCLE_EVENTS, [](const LifecycleEvent& known) { return known.name; })};
    for (const auto step : event->steps)
        if (step)
            (application_.*step)();
    return Done{};
}

Outcome CommandInterpreter::wait(Arguments arguments) {
    const auto& awaited = arguments[0];
    const auto hold = [this](auto&&... waitArguments) {
        held_.emplace(application_.queue(), std::forward<decltype(waitArguments)>(waitArguments)...,
                      [this, command = command_](const Outcome& outcome) {
                          held_.reset();
                          answer(command, outcome);
                          delegate_.resumed();
                      });
        return Held{};
    };
    if (const auto time = parseSeconds(awaited); time && arguments.size() == 1)
        return hold(*time);
    const auto longest = arguments.size() == 2 ? parseSeconds(arguments[1]) : LONGEST_ANSWER;
    if (!longest)
        return Failed{"\"" + arguments[1] + "\" is not a time in seconds"};

    auto& link = application_.link();
    const auto linkInWords = [&link] { return std::string(nameOf(link.linkState())); };
    if (awaited == "answer") {
        const auto spinner = std::static_pointer_cast<ActivityIndicator>(screen().find("spinner"));
        return hold(*longest,
                    PendingWait::Condition{
                        .isMet = [spinner] { return !spinner->isAnimating(); },
                        .observe = [spinner](auto changed) { return spinner->onChange(std::move(changed)); },
                        .explain =
                            [linkInWords] {
                                return "the unit has not answered in time; the link is " + linkInWords();
                            }});
    }
    if (contains(AWAITED, awaited)) {
        const auto state = awaited == "open" ? LinkState::Open : LinkState::Closed;
        return hold(*longest,
                    PendingWait::Condition{
                        .isMet = [&link, state] { return link.linkState() == state; },
                        .observe = [&link](auto changed) { return link.onLinkChange(std::move(changed)); },
                        .explain =
                            [linkInWords, awaited = awaited] {
                                return "the link is still " + linkInWords() + ", not " + awaited;
                            }});
    }
    if (arguments.size() == 2)
        return Failed{"\"" + awaited + "\" can't be waited for; there are answer, open and closed"};
    return Failed{"\"" + awaited + "\" is neither a time in seconds nor answer, open or closed"};
}

Outcome CommandInterpreter::quit(Arguments) {
    terminate();
    return Done{};
}

} // namespace lumbra::script

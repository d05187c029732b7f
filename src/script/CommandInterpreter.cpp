#include "script/CommandInterpreter.h"

#include "app/Settings.h"
#include "script/Keywords.h"
#include "script/Numbers.h"
#include "script/Words.h"
#include "toolkit/Controls.h"

#include <algorithm>
#include <cassert>
#include <limits>
#include <optional>
#include <utility>

namespace lumbra::script {

struct CommandTable {
    using I = CommandInterpreter;
    using A = Argument;
    static constexpr auto ANY = std::numeric_limits<std::size_t>::max();

    static std::span<const Command> commands() {
        static const Command COMMANDS[] = {
            {"help", "lists the commands", 0, 0, {}, &I::help},
            {"state", "shows the screen's controls, items and status, alert and link", 0, 0, {}, &I::state},
            {"tab NAME",
             "selects a tab by its name or its position, counted from 0",
             1,
             1,
             {A::Tab},
             &I::tab},
            {"pick CONTROL ROW",
             "turns a picker to a row, from 0, or to the first that reads TEXT for =TEXT",
             2,
             2,
             {A::Picker, A::Row},
             &I::pick},
            {"slide CONTROL VALUE", "moves a slider", 2, 2, {A::Slider, A::Number}, &I::slide},
            {"hold CONTROL", "puts a finger on a slider; slide then moves it", 1, 1, {A::Slider}, &I::hold},
            {"release CONTROL", "takes the finger off the slider", 1, 1, {A::Slider}, &I::release},
            {"switch CONTROL on|off|toggle", "flips a switch", 2, 2, {A::Switch, A::Position}, &I::flip},
            {"segment CONTROL INDEX", "taps a segment, from 0", 2, 2, {A::Segmented, A::Number}, &I::segment},
            {"press CONTROL", "presses a button", 1, 1, {A::Button}, &I::press},
            {"level ITEM VALUE",
             "moves the volume of any item, by its row from 0 or as =TEXT, in dB",
             2,
             2,
             {A::Item, A::Number},
             &I::level},
            {"mute ITEM on|off|toggle", "flips the mute of any item", 2, 2, {A::Item, A::Position}, &I::mute},
            {"dismiss", "presses the button of the alert on show", 0, 0, {}, &I::dismiss},
            {"watch on|off", "prints each item's changes, or no longer", 1, 1, {A::Watching}, &I::watch},
            {"get [KEY]", "shows the stored settings, or one", 0, 1, {A::SettingKey}, &I::get},
            {"set KEY VALUE", "stores a setting; see app", 2, 2, {A::SettingKey, A::StoredValue}, &I::set},
            {"unset KEY", "removes a stored setting; see app", 1, 1, {A::SettingKey}, &I::unset},
            {"app EVENT",
             "away, back, or one step of these; back reads the settings",
             1,
             1,
             {A::Event},
             &I::app},
            {"wait SECONDS|current|answer|open|closed [SECONDS]",
             "lets time pass, or waits, at most 5 s unless told, 10 s for current",
             1,
             2,
             {A::Awaited, A::Number},
             &I::wait},
            {"at SCREEN [=TEXT] COMMAND",
             "does a command only on that screen, with that item selected",
             2,
             ANY,
             {A::Tab},
             &I::at},
            {"quit", "ends the application", 0, 0, {}, &I::quit},
        };
        return COMMANDS;
    }
};

namespace {

using namespace std::chrono_literals;

/// What `wait` waits for beside time, and for how long unless the command says.
std::chrono::nanoseconds longestWait(std::string_view awaited) {
    return awaited == "current" ? 10s : 5s;
}

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

constexpr auto itself = [](std::string_view word) { return word; };

/// The command with that name, or null.
const Command* named(std::string_view name, std::span<const Command> commands) {
    const auto found = std::find_if(commands.begin(), commands.end(),
                                    [name](const Command& known) { return known.name() == name; });
    return found == commands.end() ? nullptr : &*found;
}

std::string withArticle(std::string_view noun) {
    return (std::string_view("aeiou").find(noun.front()) == std::string_view::npos ? "a " : "an ") +
           std::string(noun);
}

/// Calls `moveTo` with the position in `text`, of `count` things called `what`.
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
    return moveTo(static_cast<int>(*position));
}

/// The same for a row, which may also be given as =TEXT: the first of those that read so. `textOf` gives a row's
/// text.
template <class TextOf, class Move>
Outcome chooseRow(const std::string& control, const std::string& wanted, std::size_t count, TextOf textOf,
                  Move moveTo) {
    if (!wanted.starts_with('='))
        return choose(control, "row", wanted, count, moveTo);
    for (std::size_t row = 0; row < count; ++row)
        if (textOf(row) == std::string_view(wanted).substr(1))
            return moveTo(static_cast<int>(row));
    return Failed{control + ": no row reads \"" + wanted.substr(1) + "\""};
}

/// Moves a slider that is called `name` to the level in `text` with `move`.
template <class Move>
Outcome slideTo(const std::string& name, const std::string& text, Move move) {
    const auto value = parseLevel(text);
    if (!value)
        return Failed{name + ": \"" + text + "\" is not a number"};
    move(*value);
    return Done{};
}

Outcome flipTo(const std::string& name, const std::string& position, Switch& onOff) {
    if (!contains(SWITCH_POSITIONS, position))
        return Failed{name + ": no position \"" + position + "\"; there are on, off and toggle"};
    onOff.flipByUser(position == "toggle" ? !onOff.isOn() : position == "on");
    return Done{};
}

Failed noSuchSetting(const std::string& key) {
    return {key + ": no such setting; there are " +
            listed(SETTINGS, [](const SettingEntry& entry) { return entry.key; })};
}

} // namespace

CommandInterpreter::CommandInterpreter(Application& application, Printer& printer, EventReporter& events,
                                       Delegate delegate)
    : application_(application), printer_(printer), events_(events), delegate_(std::move(delegate)) {}

CommandInterpreter::~CommandInterpreter() {
    for (auto* const hand : touched_)
        hand->release(this);
}

std::span<const Command> CommandInterpreter::commands() {
    return CommandTable::commands();
}

const Command* CommandInterpreter::find(std::string_view name) {
    return named(name, commands());
}

void CommandInterpreter::execute(const Line& line) {
    assert(!isHeld());
    if (line.text.starts_with('#'))
        return;
    const auto [words, error] = splitWords(line.text);
    if (words.empty() && error.empty())
        return;
    command_ = words.empty() ? std::string() : words.front();
    const auto outcome =
        line.tooLong     ? Failed{"a line may have at most " + std::to_string(Line::MAX_LENGTH) + " bytes"}
        : !error.empty() ? Failed{error}
                         : run(words);
    answer(command_, outcome);
}

Outcome CommandInterpreter::run(Arguments words) {
    command_ = words.front();
    const auto* command = named(command_, delegate_.commands);
    if (!command)
        command = find(command_);
    const auto arguments = words.subspan(1);
    if (!command)
        return Failed{command_ + ": no such command; \"help\" lists those there are"};
    if (arguments.size() < command->fewest || arguments.size() > command->most)
        return Failed{command->most == 0 ? command_ + " stands alone"
                                         : "usage: " + std::string(command->usage)};
    return command->run(*this, arguments);
}

Printer& CommandInterpreter::reply() {
    events_.printInOrder();
    return printer_;
}

void CommandInterpreter::answer(const std::string& command, const Outcome& outcome) {
    if (std::holds_alternative<Done>(outcome))
        reply().done(command);
    if (const auto* failed = std::get_if<Failed>(&outcome)) {
        hasFailed_ = true;
        reply().failed(command, failed->error);
    }
}

const View& CommandInterpreter::screen() const {
    return application_.tabs().selectedViewController()->view();
}

Outcome CommandInterpreter::help(Arguments) {
    std::vector<Command> all(commands().begin(), commands().end());
    all.insert(all.end(), delegate_.commands.begin(), delegate_.commands.end());
    reply().help(command_, all);
    return Answered{};
}

Outcome CommandInterpreter::state(Arguments) {
    const auto& link = application_.link();
    reply().state(command_, {.tabs = application_.tabs(),
                             .hands = application_.hands(),
                             .alert = application_.alerts().shown(),
                             .link = link.linkState(),
                             .status = application_.status().status(),
                             .address = delegate_.place.empty() ? link.ip_address() : delegate_.place,
                             .unit = link.unit,
                             .retrying = application_.keepsConnected(),
                             .items = application_.items()});
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

template <class Type, class Use>
Outcome CommandInterpreter::with(const std::string& name, Use use) {
    // An action may change the tabs, which must not destroy the control while it runs.
    const auto control = screen().find(name);
    if (!control)
        return Failed{name + ": no such control on the " + screen().name() + " screen"};
    if (control->kind() != Type::KIND)
        return Failed{name + ": " + withArticle(nameOf(control->kind())) + ", not " +
                      withArticle(nameOf(Type::KIND))};
    return use(std::static_pointer_cast<Type>(control));
}

template <class Type, class Move>
Outcome CommandInterpreter::move(const std::string& name, Move moveControl) {
    return with<Type>(name, [&](const std::shared_ptr<Type>& control) -> Outcome {
        if (!control->isEnabled())
            return Failed{name + ": disabled"};
        return moveControl(*control);
    });
}

Outcome CommandInterpreter::pick(Arguments arguments) {
    return move<Picker>(arguments[0], [&](Picker& picker) {
        return chooseRow(
            arguments[0], arguments[1], picker.rows().size(),
            [&](std::size_t row) { return picker.rows()[row]; },
            [&](int row) -> Outcome {
                picker.pickByUser(row);
                return Done{};
            });
    });
}

Outcome CommandInterpreter::slide(Arguments arguments) {
    return move<Slider>(arguments[0], [&](Slider& slider) {
        return slideTo(arguments[0], arguments[1], [&](float value) {
            auto* const hand = application_.hands().find(slider);
            if (hand && hand->isHeldBy(this))
                hand->moveTo(value);
            else
                slider.slideByUser(value);
        });
    });
}

Outcome CommandInterpreter::hold(Arguments arguments) {
    return with<Slider>(arguments[0], [&](const std::shared_ptr<Slider>& slider) -> Outcome {
        if (!slider->isEnabled())
            return Failed{arguments[0] + ": disabled"};
        auto& hand = application_.hands().on(slider);
        if (!hand.grab(this))
            return Failed{arguments[0] + ": can't be held while the link is " +
                          std::string(nameOf(application_.link().linkState()))};
        touched_.insert(&hand);
        return Done{};
    });
}

Outcome CommandInterpreter::release(Arguments arguments) {
    // A finger that a lost link or another item has taken off is gone already.
    return with<Slider>(arguments[0], [&](const std::shared_ptr<Slider>& slider) -> Outcome {
        if (auto* const hand = application_.hands().find(*slider))
            hand->release(this);
        return Done{};
    });
}

Outcome CommandInterpreter::flip(Arguments arguments) {
    return move<Switch>(arguments[0],
                        [&](Switch& onOff) { return flipTo(arguments[0], arguments[1], onOff); });
}

Outcome CommandInterpreter::segment(Arguments arguments) {
    return move<SegmentedControl>(arguments[0], [&](SegmentedControl& control) {
        return choose(arguments[0], "segment", arguments[1], control.segments().size(),
                      [&](int segment) -> Outcome {
                          control.tapByUser(segment);
                          return Done{};
                      });
    });
}

Outcome CommandInterpreter::press(Arguments arguments) {
    return move<Button>(arguments[0], [](Button& button) {
        button.pressByUser();
        return Done{};
    });
}

template <class Type, class Move>
Outcome CommandInterpreter::moveRow(const std::string& wanted,
                                    const std::shared_ptr<Type>& (ItemList::*controlOf)(std::size_t) const,
                                    Move moveControl) {
    const auto* const items = application_.items();
    if (!items)
        return Failed{"the " + screen().name() + " screen has no items"};
    return chooseRow(
        screen().name() + " items", wanted, items->rowCount(),
        [&](std::size_t row) { return items->row(row).name; },
        [&](int row) -> Outcome {
            const auto control = (items->*controlOf)(static_cast<std::size_t>(row));
            if (!control->isEnabled())
                return Failed{wanted + ": disabled"};
            return moveControl(*control);
        });
}

Outcome CommandInterpreter::level(Arguments arguments) {
    return moveRow(arguments[0], &ItemList::volumeOf, [&](Slider& slider) {
        return slideTo(arguments[0], arguments[1], [&](float value) { slider.slideByUser(value); });
    });
}

Outcome CommandInterpreter::mute(Arguments arguments) {
    return moveRow(arguments[0], &ItemList::muteOf,
                   [&](Switch& onOff) { return flipTo(arguments[0], arguments[1], onOff); });
}

Outcome CommandInterpreter::dismiss(Arguments) {
    if (!application_.alerts().dismissByUser())
        return Failed{"no alert is on show"};
    return Done{};
}

Outcome CommandInterpreter::watch(Arguments arguments) {
    if (!contains(WATCHING, arguments[0]))
        return Failed{"\"" + arguments[0] + "\" is neither on nor off"};
    events_.watchItems(arguments[0] == "on");
    return Done{};
}

Outcome CommandInterpreter::get(Arguments arguments) {
    std::vector<StoredSetting> stored;
    for (const auto& entry : SETTINGS)
        if (arguments.empty() || entry.key == arguments[0])
            stored.push_back({entry.key, application_.settings().value(entry.key)});
    if (stored.empty())
        return noSuchSetting(arguments[0]);
    reply().settings(command_, stored);
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
    return delegate_.store(key, std::move(value));
}

Outcome CommandInterpreter::unset(Arguments arguments) {
    if (!findSetting(arguments[0]))
        return noSuchSetting(arguments[0]);
    return delegate_.store(arguments[0], std::nullopt);
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
    const auto begin = [this](auto&&... waitArguments) {
        held_.emplace(application_.queue(), std::forward<decltype(waitArguments)>(waitArguments)...,
                      [this, command = command_](const Outcome& outcome) {
                          held_.reset();
                          answer(command, outcome);
                          const auto resumed = delegate_.resumed;
                          resumed();
                      });
        return Held{};
    };
    const bool isTimed = arguments.size() == 2;
    if (const auto time = parseSeconds(awaited); time && !isTimed)
        return begin(*time);
    const auto longest = isTimed ? parseSeconds(arguments[1]) : longestWait(awaited);
    if (!longest)
        return Failed{"\"" + arguments[1] + "\" is not a time in seconds"};

    auto& link = application_.link();
    auto& status = application_.status();
    PendingWait::Condition condition;
    if (awaited == "current") {
        condition = {.isMet = [&status] { return status.status() == ScreenStatus::Current; },
                     .observe = [&status](auto changed) { return status.onChange(std::move(changed)); },
                     .explain =
                         [&status] {
                             return "the status is " + std::string(nameOf(status.status())) + ", not current";
                         }};
    } else if (awaited == "answer") {
        const auto spinner = std::static_pointer_cast<ActivityIndicator>(screen().find("spinner"));
        condition = {.isMet = [spinner] { return !spinner->isAnimating(); },
                     .observe = [spinner](auto changed) { return spinner->onChange(std::move(changed)); },
                     .explain =
                         [&link] {
                             return "the unit has not answered in time; the link is " +
                                    std::string(nameOf(link.linkState()));
                         }};
    } else if (contains(AWAITED, awaited)) {
        const auto state = awaited == "open" ? LinkState::Open : LinkState::Closed;
        condition = {.isMet = [&link, state] { return link.linkState() == state; },
                     .observe = [&link](auto changed) { return link.onLinkChange(std::move(changed)); },
                     .explain =
                         [&link, awaited = awaited] {
                             return "the link is still " + std::string(nameOf(link.linkState())) + ", not " +
                                    awaited;
                         }};
    } else if (isTimed) {
        return Failed{"\"" + awaited + "\" can't be waited for; there are " + listed(AWAITED, itself)};
    } else {
        return Failed{"\"" + awaited + "\" is neither a time in seconds nor one of " +
                      listed(AWAITED, itself)};
    }
    return begin(*longest, std::move(condition));
}

Outcome CommandInterpreter::at(Arguments arguments) {
    const bool namesItem = arguments[1].starts_with('=');
    const auto command = arguments.subspan(namesItem ? 2 : 1);
    if (command.empty())
        return Failed{"usage: " + std::string(find(command_)->usage)};
    command_ = command.front(); // the reply is this command's
    if (command_ == "wait" || command_ == "at")
        return Failed{command_ + ": can't stand behind at"};
    const auto& view = screen();
    if (view.name() != arguments[0])
        return Failed{"the " + view.name() + " screen is on show, not " + arguments[0]};
    if (namesItem) {
        const auto item =
            std::find_if(view.items().begin(), view.items().end(), [](const View::Item& candidate) {
                return candidate.control->kind() == Picker::KIND && !candidate.sends;
            });
        if (item == view.items().end())
            return Failed{"the " + view.name() + " screen has no items"};
        const auto wanted = arguments[1].substr(1);
        const auto& picker = static_cast<const Picker&>(*item->control);
        if (picker.selected() < 0)
            return Failed{"the " + view.name() + " screen shows no item yet, not \"" + wanted + "\""};
        if (const auto selected = picker.selectedText(); selected != wanted)
            return Failed{"the " + view.name() + " screen shows \"" + selected + "\", not \"" + wanted +
                          "\""};
    }
    return run(command);
}

Outcome CommandInterpreter::quit(Arguments) {
    return delegate_.quit();
}

} // namespace lumbra::script

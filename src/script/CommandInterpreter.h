#pragma once

#include "app/Application.h"
#include "script/Command.h"
#include "script/EventReporter.h"
#include "script/Line.h"
#include "script/PendingWait.h"
#include "script/Printer.h"

#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <string_view>

namespace lumbra::script {

/// Executes commands one after another and gives each exactly one reply. It may be destroyed at any time but
/// inside one of its own calls; then a wait ends without a reply, and its fingers leave all sliders. Main thread
/// only.
class CommandInterpreter {
public:
    /// What the front end decides, and what it adds.
    struct Delegate {
        /// A wait has been answered. Called in a turn of its own; it may destroy the interpreter.
        std::function<void()> resumed{};
        /// The user quits. The reply follows.
        std::function<Outcome()> quit{};
        /// Stores a setting that exists, with a value of its type; removes it where there is no value.
        std::function<Outcome(std::string_view key, std::optional<SettingValue> value)> store{};
        /// Where the link goes, if that is not the unit's address; else empty.
        std::string place{};
        /// Commands of this front end. They outlive the interpreter.
        std::span<const Command> commands{};
    };
    /// All three references outlive the interpreter.
    CommandInterpreter(Application& application, Printer& printer, EventReporter& events, Delegate delegate);
    ~CommandInterpreter();
    CommandInterpreter(const CommandInterpreter&) = delete;
    CommandInterpreter& operator=(const CommandInterpreter&) = delete;

    /// The commands of every front end, in the order of the help.
    static std::span<const Command> commands();
    /// Of these, the command with that name, or null.
    static const Command* find(std::string_view name);

    /// Executes one line. Empty lines and comments do nothing. Must not be called while `isHeld`.
    void execute(const Line& line);

    /// A wait is pending: the next command must wait.
    bool isHeld() const { return held_.has_value(); }
    /// A command has failed.
    bool hasFailed() const { return hasFailed_; }

private:
    friend struct CommandTable;

    Outcome help(Arguments arguments);
    Outcome state(Arguments arguments);
    Outcome tab(Arguments arguments);
    Outcome pick(Arguments arguments);
    Outcome slide(Arguments arguments);
    Outcome hold(Arguments arguments);
    Outcome release(Arguments arguments);
    Outcome flip(Arguments arguments);
    Outcome segment(Arguments arguments);
    Outcome press(Arguments arguments);
    Outcome level(Arguments arguments);
    Outcome mute(Arguments arguments);
    Outcome dismiss(Arguments arguments);
    Outcome watch(Arguments arguments);
    Outcome get(Arguments arguments);
    Outcome set(Arguments arguments);
    Outcome unset(Arguments arguments);
    Outcome app(Arguments arguments);
    Outcome wait(Arguments arguments);
    Outcome at(Arguments arguments);
    Outcome quit(Arguments arguments);

    /// Executes the words of a command.
    Outcome run(Arguments words);
    /// Finds the control on the current screen and, if it is of that type, calls `use` with it.
    template <class Type, class Use>
    Outcome with(const std::string& name, Use use);
    /// The same with a control that is enabled.
    template <class Type, class Move>
    Outcome move(const std::string& name, Move moveControl);
    /// Finds the row among the current screen's items and calls `moveControl` with its control.
    template <class Type, class Move>
    Outcome moveRow(const std::string& wanted,
                    const std::shared_ptr<Type>& (ItemList::*controlOf)(std::size_t) const, Move moveControl);

    const View& screen() const;
    /// For the reply to the present command: what happened before it is printed first.
    Printer& reply();
    void answer(const std::string& command, const Outcome& outcome);

    Application& application_;
    Printer& printer_;
    EventReporter& events_;
    Delegate delegate_;
    std::string command_; ///< the name of the command that is executing
    std::optional<PendingWait> held_;
    std::set<Hand*> touched_; ///< a finger of this interpreter has been on them
    bool hasFailed_ = false;
};

} // namespace lumbra::script

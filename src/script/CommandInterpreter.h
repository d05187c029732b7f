#pragma once

#include "app/Application.h"
#include "script/Command.h"
#include "script/Line.h"
#include "script/PendingWait.h"
#include "script/Printer.h"

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace lumbra::script {

/// Executes commands one after another and gives each exactly one reply. Main thread only.
class CommandInterpreter {
public:
    struct Delegate {
        /// A wait has been answered. Called in a turn of its own.
        std::function<void()> resumed;
        /// The application has terminated. Only the reply to the last command is still to come.
        std::function<void()> terminated;
        /// Begins or ends the events of items.
        std::function<void(bool)> watchItems;
    };
    /// `application` and `printer` outlive the interpreter.
    CommandInterpreter(Application& application, Printer& printer, Delegate delegate);

    /// All commands, in the order of the help.
    static std::span<const Command> commands();
    /// The command with that name, or null.
    static const Command* find(std::string_view name);

    /// Executes one line. Empty lines and comments do nothing. Must not be called while `isHeld` or after
    /// `hasQuit`.
    void execute(const Line& line);

    /// A wait is pending: the next command must wait.
    bool isHeld() const { return held_.has_value(); }
    /// A command has failed.
    bool hasFailed() const { return hasFailed_; }
    /// The application has terminated.
    bool hasQuit() const { return hasQuit_; }

    /// Terminates the application, unless that has been done.
    void terminate();

private:
    friend struct CommandTable;
    using Arguments = std::span<const std::string>;

    Outcome help(Arguments arguments);
    Outcome state(Arguments arguments);
    Outcome tab(Arguments arguments);
    Outcome pick(Arguments arguments);
    Outcome slide(Arguments arguments);
    Outcome flip(Arguments arguments);
    Outcome segment(Arguments arguments);
    Outcome press(Arguments arguments);
    Outcome dismiss(Arguments arguments);
    Outcome watch(Arguments arguments);
    Outcome get(Arguments arguments);
    Outcome set(Arguments arguments);
    Outcome unset(Arguments arguments);
    Outcome app(Arguments arguments);
    Outcome wait(Arguments arguments);
    Outcome quit(Arguments arguments);

    /// Finds the control on the current screen and, if it is of that type and enabled, calls `moveControl`
    /// with it.
    template <class Type, class Move>
    Outcome move(const std::string& name, Move moveControl);

    const View& screen() const;
    void answer(std::string_view command, const Outcome& outcome);

    Application& application_;
    Printer& printer_;
    Delegate delegate_;
    std::string command_; ///< the name of the command that is executing
    std::optional<PendingWait> held_;
    bool hasFailed_ = false;
    bool hasQuit_ = false;
};

} // namespace lumbra::script

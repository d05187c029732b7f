#pragma once

#include "app/Application.h"
#include "console/ConsoleCommand.h"
#include "console/LineBuffer.h"
#include "console/PendingWait.h"
#include "console/Printer.h"

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace lumbra::console {

/// Carries out the console's commands, one after another, and answers each with exactly one reply. Main
/// thread only.
class CommandInterpreter {
public:
    struct Delegate {
        std::function<void()> resumed; ///< a wait has been answered; called in a turn of its own
        std::function<void()>
            terminated; ///< the application has terminated; nothing but the reply is still to come
    };
    /// `application` and `printer` outlive the interpreter.
    CommandInterpreter(Application& application, Printer& printer, Delegate delegate);

    /// All commands, in the order in which they are listed.
    static std::span<const ConsoleCommand> commands();
    /// The command of that name; null where there is none.
    static const ConsoleCommand* find(std::string_view name);

    /// Carries out one line; an empty one or a comment is nothing. Not while `isHeld` or once `hasQuit`.
    void execute(const Line& line);

    /// A wait holds back the commands behind it.
    bool isHeld() const { return held_.has_value(); }
    /// A command was answered with an error.
    bool hasFailed() const { return hasFailed_; }
    /// The application has terminated.
    bool hasQuit() const { return hasQuit_; }

    /// Terminates the application, once.
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
    Outcome get(Arguments arguments);
    Outcome set(Arguments arguments);
    Outcome unset(Arguments arguments);
    Outcome app(Arguments arguments);
    Outcome wait(Arguments arguments);
    Outcome quit(Arguments arguments);

    /// Finds the control on the screen on show and, if it is of that type and enabled, moves it.
    template <class Type, class Move>
    Outcome move(const std::string& name, Move moveControl);

    const View& screen() const;
    void answer(std::string_view command, const Outcome& outcome);

    Application& application_;
    Printer& printer_;
    Delegate delegate_;
    std::string command_; ///< the first word of the one being carried out
    std::optional<PendingWait> held_;
    bool hasFailed_ = false;
    bool hasQuit_ = false;
};

} // namespace lumbra::console

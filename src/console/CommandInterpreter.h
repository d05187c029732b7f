#pragma once

#include "app/Application.h"
#include "console/ConsoleCommand.h"
#include "console/LineBuffer.h"
#include "console/Report.h"
#include "toolkit/Signal.h"

#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace lumbra {

/// Carries out the console's commands, one after another, and answers each with exactly one reply. Main
/// thread only.
class CommandInterpreter {
public:
    /// `application` and `report` outlive the interpreter. `resumed` is called in a turn of its own each time
    /// a command that held back the others has been answered.
    CommandInterpreter(Application& application, Report& report, std::function<void()> resumed);

    /// All commands, in the order in which they are listed.
    static std::span<const ConsoleCommand> commands();

    /// Carries out one line; an empty one or a comment is nothing. Not while `isHeld` or once `hasQuit`.
    void execute(const Line& line);

    /// A wait holds back the commands behind it.
    bool isHeld() const { return held_ != nullptr; }
    /// A command was answered with an error.
    bool hasFailed() const { return hasFailed_; }
    /// The application has terminated.
    bool hasQuit() const { return hasQuit_; }

    /// Terminates the application, once.
    void terminate();

    /// The words that may stand where `line` ends, each of which begins with the word that `line` ends with.
    std::vector<std::string> completions(std::string_view line) const;

private:
    friend struct CommandTable;
    using Arguments = std::span<const std::string>;

    /// A wait that is not over yet.
    struct Wait {
        std::string command;
        std::function<bool()> isOver; ///< null where only time is awaited
        Subscription change;          ///< of what `isOver` looks at
        bool isEnding = false;
    };

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
    void checkHeld();
    void endHeld(const std::weak_ptr<Wait>& weak, const Outcome& outcome);
    void answer(std::string_view command, const Outcome& outcome);

    Application& application_;
    Report& report_;
    std::function<void()> resumed_;
    std::string command_;        ///< the first word of the one being carried out
    std::shared_ptr<Wait> held_; ///< the only reference, so that what is still posted ends with it
    bool hasFailed_ = false;
    bool hasQuit_ = false;
};

} // namespace lumbra

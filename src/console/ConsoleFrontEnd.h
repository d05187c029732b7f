#pragma once

#include "app/Application.h"
#include "console/DescriptorOutput.h"
#include "console/LineBuffer.h"
#include "console/LineEditor.h"
#include "platform/DescriptorWatch.h"
#include "platform/Lifetime.h"
#include "platform/SettingsStore.h"
#include "script/CommandInterpreter.h"
#include "script/EventReporter.h"
#include "script/Printer.h"

#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace lumbra {

/// The caller owns the descriptors, which outlive the front end.
struct ConsoleOptions {
    bool json = false; ///< JSON Lines instead of text
    /// Where the link goes, if that is not the unit's address; else empty.
    std::string place{};
    int input = 0;
    int output = 1;
    int endSignals = -1;    ///< readable once the program should end; -1: never
    int windowSignals = -1; ///< non-blocking, readable once the terminal's window has changed; -1: never
};

/// The console front end: shows the application's controls as text and operates them by commands. Main thread
/// only.
class ConsoleFrontEnd {
public:
    /// `quit` is called once, with the program's exit status, when the application has terminated. The
    /// references outlive the front end.
    ConsoleFrontEnd(Application& application, DescriptorWatcher& watcher, ConsoleOptions options,
                    std::function<void(int exitStatus)> quit);
    ~ConsoleFrontEnd();
    ConsoleFrontEnd(const ConsoleFrontEnd&) = delete;
    ConsoleFrontEnd& operator=(const ConsoleFrontEnd&) = delete;

    /// Launches the application, then reads commands.
    void start();

private:
    void readInput();
    void readWindowSignals();
    void pump();
    void pumpLater();
    std::optional<script::Line> nextLine();
    script::Outcome store(std::string_view key, std::optional<SettingValue> value);
    void terminate();
    void end(bool atOnce);

    Application& application_;
    DescriptorWatcher& watcher_;
    ConsoleOptions options_;
    std::function<void(int)> quit_;
    bool inputIsTerminal_;

    console::DescriptorOutput output_;
    std::unique_ptr<console::LineEditor> editor_; ///< on a terminal only; it writes to the output
    std::unique_ptr<script::Printer> printer_;
    script::EventReporter events_;
    script::CommandInterpreter interpreter_;

    console::LineBuffer lines_;
    std::deque<script::Line> typed_;
    bool inputEnded_ = false;
    bool terminated_ = false; ///< the application; only the reply to the last command is still to come
    bool ended_ = false;
    std::unique_ptr<DescriptorWatch> inputWatch_;
    std::unique_ptr<DescriptorWatch> endWatch_;
    std::unique_ptr<DescriptorWatch> windowWatch_;
    Lifetime life_;
};

} // namespace lumbra

#include "console/ConsoleFrontEnd.h"

#include "console/Completion.h"
#include "console/TextPrinter.h"
#include "script/JsonPrinter.h"

#include <array>
#include <cerrno>
#include <chrono>
#include <cstddef>
#include <cstdlib>
#include <string_view>
#include <unistd.h>
#include <utility>

namespace lumbra {

using namespace console;
using namespace script;

namespace {

// The most commands of one turn of the main loop, so that many commands leave time for the unit.
constexpr int COMMANDS_A_TURN = 16;
constexpr std::chrono::milliseconds FULL_OUTPUT_PAUSE{2};

bool canEditLines(const ConsoleOptions& options) {
    const char* terminal =
        std::getenv("TERM"); // NOLINT(concurrency-mt-unsafe): nothing writes the environment
    const std::string_view name = terminal ? terminal : "";
    return !options.json && options.input == STDIN_FILENO && options.output == STDOUT_FILENO &&
           ::isatty(options.input) != 0 && ::isatty(options.output) != 0 && !name.empty() && name != "dumb";
}

} // namespace

ConsoleFrontEnd::ConsoleFrontEnd(Application& application, DescriptorWatcher& watcher, ConsoleOptions options,
                                 std::function<void(int)> quit)
    : application_(application),
      watcher_(watcher),
      options_(std::move(options)),
      quit_(std::move(quit)),
      inputIsTerminal_(::isatty(options_.input) != 0),
      output_(options_.output, options_.endSignals, application.queue(),
              [this](bool begins) {
                  if (editor_)
                      begins ? editor_->hide() : editor_->show();
              }),
      editor_(canEditLines(options_)
                  ? std::make_unique<LineEditor>(LineEditor::Delegate{
                        .entered = [this](std::string line) { typed_.push_back({std::move(line)}); },
                        .ended = [this] { inputEnded_ = true; },
                        .completions = [this](auto line) { return completions(application_, line); },
                        .print = [this](std::string_view text) { output_.print(text); }})
                  : nullptr),
      printer_(options_.json ? std::unique_ptr<Printer>(std::make_unique<JsonPrinter>(output_))
                             : std::make_unique<TextPrinter>(output_)),
      events_(application, *printer_, output_),
      interpreter_(application, *printer_, events_,
                   {.resumed = [this] { pump(); },
                    .quit =
                        [this] {
                            terminate();
                            return Done{};
                        },
                    .store = [this](auto key, auto value) { return store(key, std::move(value)); },
                    .place = options_.place}) {}

ConsoleFrontEnd::~ConsoleFrontEnd() = default;

void ConsoleFrontEnd::start() {
    application_.launch();
    output_.flush();
    if (options_.endSignals != -1)
        endWatch_ = watcher_.watchReadable(options_.endSignals, [this] { end(true); });
    if (editor_ && options_.windowSignals != -1)
        windowWatch_ = watcher_.watchReadable(options_.windowSignals, [this] { readWindowSignals(); });
    inputWatch_ = watcher_.watchReadable(options_.input, [this] { readInput(); });
    pump();
}

void ConsoleFrontEnd::readInput() {
    if (editor_) {
        editor_->readKeys();
        pump();
        return;
    }
    std::array<char, 16384> buffer; // NOLINT(cppcoreguidelines-pro-type-member-init): read fills it
    const auto count = ::read(options_.input, buffer.data(), buffer.size());
    if (count > 0) {
        lines_.append({buffer.data(), static_cast<std::size_t>(count)});
    } else if (count == 0 || (errno != EINTR && errno != EAGAIN)) {
        lines_.end();
        inputEnded_ = true;
    }
    pump();
}

void ConsoleFrontEnd::readWindowSignals() {
    std::array<char, 64> bytes; // NOLINT(cppcoreguidelines-pro-type-member-init): the content is ignored
    while (::read(options_.windowSignals, bytes.data(), bytes.size()) > 0) {
    }
    editor_->windowChanged();
}

std::optional<Line> ConsoleFrontEnd::nextLine() {
    if (!editor_)
        return lines_.next();
    if (typed_.empty())
        return std::nullopt;
    auto line = std::move(typed_.front());
    typed_.pop_front();
    return line;
}

void ConsoleFrontEnd::pump() {
    if (ended_)
        return;
    // While commands wait, no more input is read, so that memory stays bounded.
    inputWatch_->setEnabled(false);
    for (int count = 0; !interpreter_.isHeld(); ++count) {
        if (count == COMMANDS_A_TURN || output_.isFull()) {
            pumpLater();
            return;
        }
        const auto line = nextLine();
        if (!line)
            break;
        interpreter_.execute(*line);
        if (terminated_) {
            end(false);
            return;
        }
    }
    if (interpreter_.isHeld())
        return;
    if (inputEnded_) {
        end(false);
        return;
    }
    if (editor_ && !editor_->isPrompting()) {
        output_.flush();
        editor_->prompt(application_.tabs().selectedViewController()->view().name() + "> ");
    }
    inputWatch_->setEnabled(true);
}

void ConsoleFrontEnd::pumpLater() {
    auto work = life_.guard([this] { pump(); });
    if (output_.isFull())
        application_.queue().postAfter(FULL_OUTPUT_PAUSE, std::move(work));
    else
        application_.queue().post(std::move(work));
}

Outcome ConsoleFrontEnd::store(std::string_view key, std::optional<SettingValue> value) {
    auto& settings = application_.settings();
    if (value)
        settings.setValue(key, *std::move(value));
    else
        settings.remove(key);
    settings.flush();
    return Done{};
}

void ConsoleFrontEnd::terminate() {
    if (std::exchange(terminated_, true))
        return;
    application_.terminate();
    events_.printGathered();
}

void ConsoleFrontEnd::end(bool atOnce) {
    if (std::exchange(ended_, true))
        return;
    inputWatch_.reset();
    endWatch_.reset();
    windowWatch_.reset();
    terminate();
    editor_.reset();
    if (atOnce)
        output_.flush();
    else
        output_.finish();
    quit_(interpreter_.hasFailed() && !inputIsTerminal_ ? 1 : 0);
}

} // namespace lumbra

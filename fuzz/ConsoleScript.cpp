// A script for the console, over the whole application. The first line is "json" or "text"; with " slow" behind it, the
// reader of the output reads only when told, and at the end. A line that begins with "~" is what happens meanwhile; the
// lines between two of these arrive in one piece, and so does their end:
//
//     ~o ~c ~e ~x    the output alone opens, both streams open, end, report an error
//     ~rBYTES        bytes of the unit arrive
//     ~tMS           milliseconds pass
//     ~n             the network goes, or comes back
//     ~sNUMBER       so many bytes of the next write are taken; an error without a number
//     ~d             the reader reads all there is
//     ~q             a signal ends the program

#include "Check.h"
#include "Commands.h"
#include "Invariants.h"
#include "Session.h"
#include "Target.h"
#include "script/CommandInterpreter.h"
#include "script/JsonPrinter.h"
#include "script/Words.h"

#include <rapidjson/document.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <fcntl.h>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <sys/mman.h>
#include <unistd.h>
#include <vector>

using namespace lumbra;
using namespace std::chrono_literals;

namespace {

constexpr std::string_view BLANKS = " \t";
// What a pipe takes at once.
constexpr std::size_t LONGEST_SCRIPT = 32768;

/// The whole program on pipes. Its output becomes a file in memory, which never makes it wait, before it can end.
class Program {
public:
    Program(bool json, bool slow) {
        if (::pipe2(input_.data(), O_CLOEXEC) != 0 || ::pipe2(output_.data(), O_CLOEXEC | O_NONBLOCK) != 0 ||
            ::pipe2(signals_.data(), O_CLOEXEC) != 0)
            std::abort();
        if (slow)
            ::fcntl(output_[1], F_SETPIPE_SZ, 4096);
        else
            useFile();
        console_.emplace(
            remote.application, watcher_,
            ConsoleOptions{.json = json, .input = input_[0], .output = output_[1], .endSignals = signals_[0]},
            [this](int status) {
                check(!exitStatus, "the program ended twice");
                exitStatus = status;
            });
        console_->start();
        settle();
    }
    ~Program() {
        console_.reset();
        // Nothing of the console is left in the queue.
        remote.settle();
        remote.queue.advance(10s);
        for (const int descriptor : {input_[0], input_[1], output_[0], output_[1], signals_[0], signals_[1]})
            if (descriptor >= 0)
                ::close(descriptor);
    }
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    void settle() {
        do
            remote.settle();
        while (!exitStatus && watcher_.run());
    }
    void type(std::string_view bytes) {
        if (bytes.empty())
            return;
        if (bytes.find("quit") != std::string_view::npos)
            useFile();
        if (::write(input_[1], bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size()))
            std::abort();
        settle();
    }
    void endInput() {
        useFile();
        ::close(std::exchange(input_[1], -1));
        settle();
    }
    void signal() {
        isInterrupted = true;
        if (::write(signals_[1], "!", 1) != 1)
            std::abort();
        settle();
        check(exitStatus.has_value(), "a signal did not end the program");
    }
    /// Reads what the pipe holds.
    void drain() {
        std::array<char, 4096> buffer; // NOLINT(cppcoreguidelines-pro-type-member-init): read fills it
        for (ssize_t count = 0; (count = ::read(output_[0], buffer.data(), buffer.size())) > 0;)
            drained_.append(buffer.data(), static_cast<std::size_t>(count));
    }
    /// All that was printed.
    std::string printed() {
        useFile();
        std::string text(static_cast<std::size_t>(::lseek(output_[1], 0, SEEK_END)), '\0');
        if (::pread(output_[1], text.data(), text.size(), 0) != static_cast<ssize_t>(text.size()))
            std::abort();
        return drained_ + text;
    }

    /// The screen as it stands, as a reply would tell it.
    std::string state() {
        const auto before = printed().size();
        console::DescriptorOutput output(output_[1], -1, remote.queue, nullptr);
        script::JsonPrinter printer(output);
        script::EventReporter events(remote.application, printer, output);
        script::CommandInterpreter(remote.application, printer, events, {}).execute({"state"});
        output.finish();
        return printed().substr(before);
    }

    Remote remote;
    std::optional<int> exitStatus;
    bool isInterrupted = false;

private:
    void useFile() {
        if (std::exchange(usesFile_, true))
            return;
        static const int FILE = ::memfd_create("printed", MFD_CLOEXEC);
        drain();
        if (::ftruncate(FILE, 0) != 0 || ::lseek(FILE, 0, SEEK_SET) != 0 || ::dup2(FILE, output_[1]) < 0)
            std::abort();
    }

    std::array<int, 2> input_{-1, -1};
    std::array<int, 2> output_{-1, -1};
    std::array<int, 2> signals_{-1, -1};
    bool usesFile_ = false;
    std::string drained_;
    ManualWatcher watcher_;
    std::optional<ConsoleFrontEnd> console_;
};

/// Whether the line holds a control character, of either set.
bool obeyed(std::string_view line) {
    for (std::size_t at = 0; at < line.size(); ++at) {
        const auto byte = static_cast<unsigned char>(line[at]);
        const auto next = at + 1 < line.size() ? static_cast<unsigned char>(line[at + 1]) : 0;
        if (byte < 0x20 || byte == 0x7F || (byte == 0xC2 && next >= 0x80 && next < 0xA0))
            return true;
    }
    return false;
}

void happen(Program& program, std::string_view step) {
    auto& streams = program.remote.streams;
    const auto kind = step.empty() ? '\0' : step[0];
    step.remove_prefix(std::min<std::size_t>(1, step.size()));
    std::optional<int> number;
    if (int value = 0; std::from_chars(step.data(), step.data() + step.size(), value).ec == std::errc())
        number = value;
    if (kind == 't')
        program.remote.queue.advance(std::chrono::milliseconds(std::clamp(number.value_or(0), 0, 100'000)));
    else if (kind == 'n')
        program.remote.reachability.reachable = !program.remote.reachability.reachable;
    else if (kind == 'd')
        program.drain();
    else if (kind == 'q')
        program.signal();
    else if (streams.created() == 0)
        return;
    else if (kind == 'o')
        streams.last().fireOutput(StreamEvent::OpenCompleted);
    else if (kind == 'c')
        streams.last().connect();
    else if (kind == 'e')
        streams.last().fireInput(StreamEvent::EndEncountered);
    else if (kind == 'x')
        streams.last().fireInput(StreamEvent::ErrorOccurred);
    else if (kind == 'r')
        streams.last().feed(step);
    else if (kind == 's')
        streams.last().writeResults.push_back(std::max(number.value_or(-1), -1));
    program.settle();
    const auto broken = brokenInvariant(program.remote);
    check(broken.empty(), broken);
}

/// A command that was typed.
class Command {
public:
    /// `line` is without the blanks around it.
    explicit Command(std::string_view line) : line_(line), words_(script::splitWords(line).words) {
        isConditional_ = words_.size() > 2 && words_[0] == "at";
        if (isConditional_)
            words_.erase(words_.begin(), words_.begin() + (words_[2].starts_with('=') ? 3 : 2));
    }

    std::string_view line() const { return line_; }
    /// What `at` does where it stands before it.
    std::string_view word() const { return words_.empty() ? std::string_view() : words_[0]; }
    bool isOneWord() const { return words_.size() == 1; }
    /// Whether the line begins with the word: no quotes, no bytes that might not be text, no `at`.
    bool isPlain() const {
        return !isConditional_ && line_.starts_with(word()) &&
               std::all_of(word().begin(), word().end(), [](char c) { return c > ' ' && c < '\x7F'; });
    }
    bool isQuit() const { return isOneWord() && word() == "quit"; }
    bool isConditional() const { return isConditional_; }

private:
    std::string_view line_;
    std::vector<std::string> words_;
    bool isConditional_;
};

/// The commands of a script that get a reply: up to the quit.
std::vector<Command> commandsOf(std::string_view script) {
    std::vector<Command> commands;
    while (!script.empty()) {
        auto line = script.substr(0, script.find('\n'));
        script.remove_prefix(std::min(line.size() + 1, script.size()));
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        const auto begin = line.find_first_not_of(BLANKS);
        if (line.starts_with('#') || begin == std::string_view::npos)
            continue;
        const Command command(line.substr(begin, line.find_last_not_of(BLANKS) + 1 - begin));
        commands.push_back(command);
        if (command.isQuit() && !command.isConditional())
            break;
    }
    return commands;
}

/// Counts replies against the commands.
class Replies {
public:
    explicit Replies(std::vector<Command> commands) : commands_(std::move(commands)) {}

    const Command& next(std::string_view line) const {
        check(count_ < commands_.size(), "a reply to no command", line);
        return commands_[count_];
    }
    void add(std::string_view line, bool ok) {
        const bool hasQuit = next(line).isQuit() && ok;
        ++count_;
        failed_ = failed_ || !ok;
        if (hasQuit)
            commands_.erase(commands_.begin() + static_cast<std::ptrdiff_t>(count_), commands_.end());
    }
    void checkAll(int exitStatus) const {
        check(count_ == commands_.size(), "a command got no reply",
              count_ < commands_.size() ? commands_[count_].line() : "");
        checkStatus(exitStatus);
    }
    void checkStatus(int exitStatus) const {
        check(exitStatus == (failed_ ? 1 : 0), "the wrong exit status", std::to_string(exitStatus));
    }

private:
    std::vector<Command> commands_;
    std::size_t count_ = 0;
    bool failed_ = false;
};

/// Reads the lines of JSON and keeps what they tell of the controls.
class JsonLines {
public:
    explicit JsonLines(Replies& replies) : replies_(replies) {}

    void read(std::string_view line) {
        rapidjson::Document json;
        json.Parse<rapidjson::kParseValidateEncodingFlag>(line.data(), line.size());
        check(!json.HasParseError() && json.IsObject(), "a line is no JSON object", line);
        check(json.HasMember("reply") != json.HasMember("event"), "neither a reply nor an event", line);
        if (json.HasMember("reply")) {
            readReply(line, json);
        } else if (json["event"] == "screen") {
            controls_.clear();
            screen_ = json["screen"].GetString();
        } else if (json["event"] == "control") {
            check(json["screen"] == screen_.c_str(), "a control of a screen that is not on show", line);
            controls_[json["control"].GetString()].CopyFrom(json["state"], allocator_);
        }
    }
    /// The newest event of each control must tell how it stands on `view`.
    void checkControls(const std::string& state) {
        rapidjson::Document json;
        json.Parse(state.c_str());
        for (const auto& [name, told] : controls_)
            check(json["controls"].HasMember(name.c_str()) && json["controls"][name.c_str()] == told,
                  "the last event of a control was not its state", name);
    }

private:
    void readReply(std::string_view line, const rapidjson::Document& json) {
        const auto& command = replies_.next(line);
        check(!command.isPlain() || command.word() == json["reply"].GetString(), "a reply out of order",
              line);
        check(json.HasMember("ok") && json["ok"].IsBool(), "a reply without ok", line);
        const bool ok = json["ok"].GetBool();
        check(ok != json.HasMember("error"), "an error that is none, or none that is one", line);
        replies_.add(line, ok);
    }

    Replies& replies_;
    rapidjson::Document::AllocatorType allocator_;
    std::string screen_;
    std::map<std::string, rapidjson::Value> controls_; ///< of that screen
};

/// In text, a reply is "ok", an error, the head of a state, or the first row of a table of settings or of the
/// help.
void readText(std::string_view line, Replies& replies, std::size_t& rows) {
    const auto begin = line.substr(0, line.find_first_of(":, "));
    const bool isState = line.find(" screen, link ") == begin.size();
    if (line == "ok" || line.starts_with("error: ") || isState) {
        replies.add(line, begin != "error");
        rows = isState ? std::string_view::npos : 0;
    } else if (line.starts_with("  ") && rows == std::string_view::npos &&
               line.find("_preference") == std::string_view::npos && !line.starts_with("  help ")) {
        return; // a control
    } else if (line.starts_with("  ")) {
        if (rows == 0 || rows == std::string_view::npos) {
            const auto& command = replies.next(line);
            rows = command.word() == "help" ? script::CommandInterpreter::commands().size()
                   : command.isOneWord()    ? 6
                                            : 1;
            replies.add(line, true);
        }
        --rows;
    }
}

} // namespace

FUZZ_TARGET(console)(Input input) {
    if (input.size() > LONGEST_SCRIPT)
        return;
    const auto kind = input.until('\n');
    const bool json = !kind.starts_with("text");
    const bool slow = kind.ends_with(" slow");
    Program program(json, slow);
    std::string script;
    std::string piece;
    const auto type = [&] {
        program.type(piece);
        script += std::exchange(piece, {});
    };
    while (!input.empty() && !program.exitStatus) {
        const auto line = input.until('\n');
        if (line.starts_with('~')) {
            type();
            if (!program.exitStatus)
                happen(program, line.substr(1));
        } else {
            piece.append(line) += '\n';
        }
    }
    if (!program.exitStatus) {
        type();
        program.endInput();
    }
    while (!program.exitStatus) {
        if (program.remote.queue.now() > 4'000'000'000s) // The waits reach beyond the clock's range.
            return;
        check(program.remote.queue.runNext(), "the program neither ends nor waits");
        program.settle();
    }

    Replies replies(commandsOf(script));
    JsonLines jsonLines(replies);
    auto printed = program.printed();
    const bool isCut = program.isInterrupted && slow; // A signal waits for no reader.
    if (isCut)
        printed.resize(printed.rfind('\n') + 1);
    check(printed.empty() || printed.back() == '\n', "the last line has no end");
    std::size_t rows = 0;
    for (std::string_view left = printed; !left.empty(); left.remove_prefix(left.find('\n') + 1)) {
        const auto line = left.substr(0, left.find('\n'));
        check(!obeyed(line), "a terminal would obey what is printed", line);
        if (json)
            jsonLines.read(line);
        else
            readText(line, replies, rows);
    }
    if (!program.isInterrupted)
        replies.checkAll(*program.exitStatus);
    else if (!isCut)
        replies.checkStatus(*program.exitStatus);
    if (json && !isCut)
        jsonLines.checkControls(program.state());
    checkCommands(program.remote.sent());
}

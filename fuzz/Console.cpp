// A script for the console, over the whole application. The first line is "json" or "text". A line that
// begins with
// "~" is what happens meanwhile; the lines between two of these arrive in one piece, and so does their end:
//
//     ~o ~c ~e ~x    the output alone opens, both streams open, end, report an error
//     ~rBYTES        bytes of the unit arrive
//     ~tMS           milliseconds pass
//     ~n             the network goes, or comes back
//     ~sNUMBER       so many bytes of the next write are taken; an error without a number

#include "Check.h"
#include "Commands.h"
#include "Input.h"
#include "Invariants.h"
#include "Session.h"

#include <rapidjson/document.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <chrono>
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

/// The whole program: its input is a pipe, its output a file in memory, which never makes it wait.
struct Program {
    explicit Program(bool json) : output(emptyFile()) {
        if (::pipe2(input.data(), O_CLOEXEC) != 0)
            std::abort();
        console.emplace(remote.application, watcher,
                        ConsoleOptions{.json = json, .input = input[0], .output = output},
                        [this](int status) {
                            check(!exitStatus, "the program ended twice");
                            exitStatus = status;
                        });
        console->start();
        settle();
    }
    ~Program() {
        console.reset();
        // Nothing of the console is left in the queue.
        remote.settle();
        remote.queue.advance(10s);
        endInput();
        ::close(input[0]);
    }

    void settle() {
        do
            remote.settle();
        while (!exitStatus && watcher.run());
    }
    void type(std::string_view bytes) {
        if (!bytes.empty() &&
            ::write(input[1], bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size()))
            std::abort();
        settle();
    }
    void endInput() {
        if (input[1] >= 0)
            ::close(std::exchange(input[1], -1));
    }
    std::string printed() const {
        std::string text(static_cast<std::size_t>(::lseek(output, 0, SEEK_END)), '\0');
        if (::pread(output, text.data(), text.size(), 0) != static_cast<ssize_t>(text.size()))
            std::abort();
        return text;
    }

    Remote remote;
    ManualWatcher watcher;
    std::array<int, 2> input{-1, -1};
    int output;
    std::optional<ConsoleFrontEnd> console;
    std::optional<int> exitStatus;

private:
    static int emptyFile() {
        static const int FILE = ::memfd_create("printed", MFD_CLOEXEC);
        if (::ftruncate(FILE, 0) != 0 || ::lseek(FILE, 0, SEEK_SET) != 0)
            std::abort();
        return FILE;
    }
};

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
struct Command {
    std::string_view line; ///< without the blanks around it

    std::string_view word() const { return line.substr(0, line.find_first_of(BLANKS)); }
    bool isOneWord() const { return word() == line; }
    /// The first word as it stands: no quotes, no bytes that might not be text.
    bool isPlain() const {
        const auto first = word();
        return std::all_of(first.begin(), first.end(),
                           [](char c) { return c > ' ' && c < '\x7F' && c != '"'; });
    }
    bool isQuit() const { return line == "quit" || line == "\"quit\""; }
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
        commands.push_back({line.substr(begin, line.find_last_not_of(BLANKS) + 1 - begin)});
        if (commands.back().isQuit())
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
        next(line);
        ++count_;
        failed_ = failed_ || !ok;
    }
    void checkAll(int exitStatus) const {
        check(count_ == commands_.size(), "a command got no reply",
              count_ < commands_.size() ? commands_[count_].line : "");
        check(exitStatus == (failed_ ? 1 : 0), "the wrong exit status", std::to_string(exitStatus));
    }

private:
    std::vector<Command> commands_;
    std::size_t count_ = 0;
    bool failed_ = false;
};

void readJson(std::string_view line, Replies& replies) {
    rapidjson::Document json;
    json.Parse<rapidjson::kParseValidateEncodingFlag>(line.data(), line.size());
    check(!json.HasParseError() && json.IsObject(), "a line is no JSON object", line);
    check(json.HasMember("reply") != json.HasMember("event"), "neither a reply nor an event", line);
    if (!json.HasMember("reply"))
        return;
    const auto& command = replies.next(line);
    check(!command.isPlain() || command.word() == json["reply"].GetString(), "a reply out of order", line);
    check(json.HasMember("ok") && json["ok"].IsBool(), "a reply without ok", line);
    const bool ok = json["ok"].GetBool();
    check(ok != json.HasMember("error"), "an error that is none, or none that is one", line);
    replies.add(line, ok);
}

/// In text, a reply is "ok", an error, the head of a state, or the first row of a table of settings or of the
/// help.
void readText(std::string_view line, Replies& replies, std::size_t& rows) {
    check(std::none_of(line.begin(), line.end(), [](char c) { return (c >= 0 && c < ' ') || c == '\x7F'; }),
          "a control character is printed", line);
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
            rows = command.word() == "help" ? CommandInterpreter::commands().size()
                   : command.isOneWord()    ? 6
                                            : 1;
            replies.add(line, true);
        }
        --rows;
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size > LONGEST_SCRIPT)
        return 0;
    Input input(data, size);
    const bool json = input.line() != "text";
    Program program(json);
    std::string script;
    std::string piece;
    const auto type = [&] { program.type(piece), script += std::exchange(piece, {}); };
    while (!input.empty() && !program.exitStatus) {
        const auto line = input.line();
        if (line.starts_with('~')) {
            type();
            happen(program, line.substr(1));
        } else {
            piece.append(line) += '\n';
        }
    }
    type();
    program.endInput();
    program.settle();
    while (!program.exitStatus) {
        if (program.remote.queue.now() > 4'000'000'000s) // The waits reach beyond the clock's range.
            return 0;
        check(program.remote.queue.runNext(), "the program neither ends nor waits");
        program.settle();
    }

    Replies replies(commandsOf(script));
    const auto printed = program.printed();
    check(printed.empty() || printed.back() == '\n', "the last line has no end");
    std::size_t rows = 0;
    for (std::string_view left = printed; !left.empty(); left.remove_prefix(left.find('\n') + 1))
        if (const auto line = left.substr(0, left.find('\n')); json)
            readJson(line, replies);
        else
            readText(line, replies, rows);
    replies.checkAll(*program.exitStatus);
    checkCommands(program.remote.sent());
    return 0;
}

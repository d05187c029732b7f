#pragma once

#include "Remote.h"
#include "console/ConsoleFrontEnd.h"
#include "platform/DescriptorWatch.h"

#include <rapidjson/document.h>

#include <array>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <functional>
#include <memory>
#include <optional>
#include <poll.h>
#include <sstream>
#include <string>
#include <string_view>
#include <unistd.h>
#include <vector>

namespace lumbra {

/// Watches descriptors when told to.
class ManualWatcher final : public DescriptorWatcher {
public:
    std::unique_ptr<DescriptorWatch> watchReadable(int fd, std::function<void()> readable) override {
        auto watch = std::make_unique<Watch>(*this, fd, std::move(readable));
        watches_.push_back(watch.get());
        return watch;
    }
    /// Calls what is enabled and can be read, once each; whether there was any.
    bool run() {
        bool any = false;
        const auto watches = watches_;
        for (auto* watch : watches) {
            if (std::find(watches_.begin(), watches_.end(), watch) == watches_.end() || !watch->enabled)
                continue;
            pollfd descriptor{watch->fd, POLLIN, 0};
            if (::poll(&descriptor, 1, 0) != 1)
                continue;
            any = true;
            const auto readable = watch->readable;
            readable();
        }
        return any;
    }

private:
    struct Watch final : DescriptorWatch {
        Watch(ManualWatcher& in, int descriptor, std::function<void()> call)
            : watcher(in), fd(descriptor), readable(std::move(call)) {}
        ~Watch() override { std::erase(watcher.watches_, this); }
        void setEnabled(bool on) override { enabled = on; }

        ManualWatcher& watcher;
        int fd;
        std::function<void()> readable;
        bool enabled = true;
    };
    std::vector<Watch*> watches_;
};

/// The console over the whole application, on pipes and virtual time, played as a transcript:
///
///     $ tab group              a line of standard input
///     $end                     its end
///     < {"reply":...}          the next line of standard output, to the letter
///     <~ "ok":true             a part of the next line
///     <...                     whatever has been printed until now
///     ~ > U1Z3V-30             a step of Remote: a report, time that passes, what becomes of the streams
///
/// All output must be in the transcript. `play` gives what went wrong, or an empty text.
class Session {
public:
    Remote remote;
    ManualWatcher watcher;
    std::optional<ConsoleFrontEnd> console;
    std::optional<int> exitStatus;

    explicit Session(bool json = true) : json_(json) {
        if (::pipe2(input_.data(), O_CLOEXEC) != 0 || ::pipe2(output_.data(), O_CLOEXEC) != 0 ||
            ::pipe2(signals_.data(), O_CLOEXEC) != 0)
            std::abort();
        ::fcntl(output_[0], F_SETFL, O_NONBLOCK);
        console.emplace(
            remote.application, watcher,
            ConsoleOptions{.json = json, .input = input_[0], .output = output_[1], .endSignals = signals_[0]},
            [this](int status) { exitStatus = status; });
    }
    ~Session() {
        console.reset();
        endInput();
        for (const int descriptor : {input_[0], output_[0], output_[1], signals_[0], signals_[1]})
            ::close(descriptor);
    }

    /// Launches; with `connected`, the streams then open, the unit ends its answer, and what was printed is
    /// forgotten.
    void start(bool connected = true) {
        console->start();
        settle();
        if (connected) {
            remote.streams.last().connect();
            settle();
            remote.report("U1APPQ0");
            remote.report("U1APPQ1");
            settle();
            remote.sent();
            read();
            lines_.clear();
        }
    }
    void type(std::string_view bytes) {
        if (::write(input_[1], bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size()))
            std::abort();
        settle();
    }
    void endInput() {
        if (input_[1] >= 0)
            ::close(std::exchange(input_[1], -1));
    }
    /// A signal asks the program to end.
    void endBySignal() {
        if (::write(signals_[1], "!", 1) != 1)
            std::abort();
    }
    void closeOutput() {
        std::signal(SIGPIPE, SIG_IGN); // as the program does
        ::close(output_[0]);
        output_[0] = ::open("/dev/null", O_RDONLY | O_CLOEXEC);
    }
    /// Runs everything that needs no time to pass.
    void settle() {
        do
            remote.settle();
        while (watcher.run());
    }
    /// What has been printed and not read yet.
    std::string read() {
        std::string bytes;
        std::array<char, 65536> buffer{};
        for (ssize_t count = 0; (count = ::read(output_[0], buffer.data(), buffer.size())) > 0;)
            bytes.append(buffer.data(), static_cast<std::size_t>(count));
        return bytes;
    }

    std::string play(std::string_view transcript) {
        std::istringstream steps{std::string(transcript)};
        std::string problems;
        for (std::string step; std::getline(steps, step);) {
            const auto begin = step.find_first_not_of(' ');
            if (begin == std::string::npos)
                continue;
            step.erase(0, begin);
            if (const auto problem = run(step); !problem.empty())
                problems.append(step).append("\n    ").append(problem).append("\n");
        }
        settle();
        takeLines(problems);
        for (const auto& line : std::exchange(lines_, {}))
            problems += "not in the transcript: " + line + "\n";
        return problems;
    }

private:
    std::string run(const std::string& step) {
        std::string problems;
        if (step == "$end") {
            endInput();
            settle();
        } else if (step.starts_with("$")) {
            type(step.substr(std::min<std::size_t>(2, step.size())) + "\n");
        } else if (step.starts_with("~ ")) {
            problems = remote.play(step.substr(2));
            settle();
        } else if (takeLines(problems); step == "<...") {
            lines_.clear();
        } else if (lines_.empty()) {
            problems += "nothing is printed";
        } else {
            const auto line = lines_.front();
            lines_.erase(lines_.begin());
            const bool part = step.starts_with("<~ ");
            if (part ? line.find(step.substr(3)) == std::string::npos : line != step.substr(2))
                problems += "printed: " + line;
        }
        return problems;
    }
    void takeLines(std::string& problems) {
        std::istringstream printed(read());
        for (std::string line; std::getline(printed, line);) {
            rapidjson::Document document;
            if (json_ && (document.Parse<rapidjson::kParseValidateEncodingFlag>(line.data(), line.size())
                              .HasParseError() ||
                          document.HasMember("reply") == document.HasMember("event")))
                problems += "neither a reply nor an event: " + line + "\n";
            lines_.push_back(line);
        }
    }

    bool json_;
    std::array<int, 2> input_{-1, -1};
    std::array<int, 2> output_{-1, -1};
    std::array<int, 2> signals_{-1, -1};
    std::vector<std::string> lines_;
};

} // namespace lumbra

#pragma once

#include "Remote.h"
#include "console/ConsoleFrontEnd.h"
#include "platform/DescriptorWatch.h"

#include <rapidjson/document.h>

#include <csignal>
#include <deque>
#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace lumbra {

/// Watches descriptors when told to.
class ManualWatcher final : public DescriptorWatcher {
public:
    std::unique_ptr<DescriptorWatch> watchReadable(int fd, std::function<void()> readable) override {
        watched_.push_back(std::make_shared<Watched>(Watched{fd, std::move(readable)}));
        return std::make_unique<Watch>(watched_.back());
    }
    /// Calls what is enabled and can be read, once each; whether there was any.
    bool run() {
        bool any = false;
        for (const auto& watched : std::vector(watched_)) {
            pollfd descriptor{watched->fd, POLLIN, 0};
            if (!watched->enabled || ::poll(&descriptor, 1, 0) != 1)
                continue;
            any = true;
            watched->readable();
        }
        return any;
    }

private:
    struct Watched {
        int fd;
        std::function<void()> readable;
        bool enabled = true;
    };
    struct Watch final : DescriptorWatch {
        explicit Watch(std::shared_ptr<Watched> of) : watched(std::move(of)) {}
        ~Watch() override { watched->enabled = false; }
        void setEnabled(bool on) override { watched->enabled = on; }
        std::shared_ptr<Watched> watched;
    };
    std::vector<std::shared_ptr<Watched>> watched_;
};

/// The console over the whole application, on pipes and virtual time, played as a transcript:
///
///     $ tab group              a line of standard input
///     $part tab                some bytes of it
///     $end, $signal            its end; a signal asks the program to end
///     $unread                  nobody reads standard output any more
///     < {"reply":...}          the next line of standard output, to the letter
///     = tab                    likewise, a reply: {"reply":"tab","ok":true}
///     = tab 9: no such tab     likewise: {"reply":"tab","ok":false,"error":"9: no such tab"}
///     <~ "ok":true             a part of the next line
///     <...                     whatever has been printed until now
///     exit 0                   the program has told its delegate and has ended
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

    /// Launches; with `connected`, the streams then open, the unit ends its answer, and what was printed is forgotten.
    void start(bool connected = true) {
        console->start();
        settle();
        if (!connected)
            return;
        play("~ connect ; ~ > U1APPQ0 ; ~ > U1APPQ1 ; <...");
        remote.sent();
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
        auto problems = runSteps(transcript, [this](const std::string& step) { return run(step); });
        takeLines(problems);
        for (const auto& line : std::exchange(lines_, {}))
            problems += "not in the transcript: " + line + "\n";
        return problems;
    }

private:
    std::string run(const std::string& step) {
        const auto rest = step.substr(std::min(step.find(' '), step.size() - 1) + 1);
        std::string problems;
        if (step == "$end")
            endInput();
        else if (step == "$signal")
            problems = ::write(signals_[1], "!", 1) == 1 ? "" : "no signal";
        else if (step == "$unread") {
            std::signal(SIGPIPE, SIG_IGN); // as the program does
            ::close(std::exchange(output_[0], ::open("/dev/null", O_RDONLY | O_CLOEXEC)));
        } else if (step.starts_with("$part "))
            type(rest);
        else if (step.starts_with("$"))
            type((step == "$" ? "" : rest) + "\n");
        else if (step.starts_with("~ "))
            problems = remote.play(rest);
        else if (step.starts_with("exit "))
            problems = exitStatus && std::to_string(*exitStatus) == rest &&
                               !remote.application.tabs().appWasInBackground()
                           ? ""
                           : "no such end";
        else if (takeLines(problems); step == "<...")
            lines_.clear();
        else if (lines_.empty())
            problems += "nothing is printed";
        else {
            const auto line = lines_.front();
            lines_.pop_front();
            if (step.starts_with("<~ ") ? line.find(rest) == std::string::npos
                                        : line != (step.starts_with("= ") ? reply(rest) : rest))
                problems += "printed: " + line;
        }
        settle();
        return problems;
    }
    static std::string reply(const std::string& text) {
        const auto blank = std::min(text.find(' '), text.size());
        return "{\"reply\":\"" + text.substr(0, blank) + "\",\"ok\":" +
               (blank == text.size() ? "true}" : "false,\"error\":\"" + text.substr(blank + 1) + "\"}");
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
    std::array<int, 2> input_{-1, -1}, output_{-1, -1}, signals_{-1, -1};
    std::deque<std::string> lines_;
};

} // namespace lumbra

#pragma once

#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <optional>
#include <poll.h>
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace lumbra {

/// A folder that goes with its object.
class Folder {
public:
    Folder() {
        std::string name = std::filesystem::temp_directory_path() / "lumbra-test-XXXXXX";
        path_ = ::mkdtemp(name.data());
    }
    ~Folder() { std::filesystem::remove_all(path_); }
    std::string operator/(const char* name) const { return path_ / name; }

private:
    std::filesystem::path path_;
};

/// A program run by a test, with pipes or a terminal as its standard streams. It is killed with its object.
class Process {
public:
    static constexpr int TERMINAL_COLUMNS = 60;
    enum class Streams { Pipes, Terminal };

    explicit Process(std::vector<std::string> arguments, Streams streams = Streams::Pipes) {
        std::vector<char*> argv;
        argv.reserve(arguments.size() + 1);
        for (auto& argument : arguments)
            argv.push_back(argument.data());
        argv.push_back(nullptr);
        int input[2] = {-1, -1}, output[2] = {-1, -1}, errors[2] = {-1, -1};
        bool isReady = ::pipe2(errors, O_CLOEXEC) == 0;
        if (streams == Streams::Terminal) {
            const winsize window{24, TERMINAL_COLUMNS, 0, 0};
            int terminal = -1;
            pid_ = ::forkpty(&terminal, nullptr, nullptr, &window);
            input[1] = ::fcntl(terminal, F_DUPFD_CLOEXEC, 0);
            output[0] = ::fcntl(terminal, F_DUPFD_CLOEXEC, 0);
            ::close(terminal);
        } else {
            isReady = isReady && ::pipe2(input, O_CLOEXEC) == 0 && ::pipe2(output, O_CLOEXEC) == 0;
            pid_ = ::fork();
        }
        if (pid_ == 0) {
            for (int standard = 0; const int theirs : {input[0], output[1], errors[1]})
                ::dup2(theirs, standard++);
            for (const int number : {SIGPIPE, SIGHUP}) // which this program and nohup ignore
                std::signal(number, SIG_DFL);
            ::execv(argv[0], argv.data());
            ::_exit(127);
        }
        if (pid_ < 0 || !isReady)
            std::abort();
        for (const int theirs : {input[0], output[1], errors[1]})
            ::close(theirs);
        input_ = input[1];
        output_ = output[0];
        errors_ = errors[0];
        std::signal(SIGPIPE, SIG_IGN);
    }
    ~Process() {
        signal(SIGKILL);
        wait();
        for (const int descriptor : {input_, output_, errors_})
            ::close(descriptor);
    }
    Process(const Process&) = delete;

    void write(std::string_view bytes) {
        while (!bytes.empty()) {
            const auto count = ::write(input_, bytes.data(), bytes.size());
            if (count < 0)
                return; // it has ended, which the test sees at its status
            bytes.remove_prefix(static_cast<std::size_t>(count));
        }
    }
    void endInput() { ::close(std::exchange(input_, -1)); }
    /// Nobody reads its standard output any more.
    void closeOutput() { ::close(std::exchange(output_, -1)); }
    /// The next line of standard output; nothing at the end, or when none comes for a long time.
    std::optional<std::string> readLine() {
        const auto line = readUntil("\n");
        return line ? std::optional(line->substr(0, line->size() - 1)) : line;
    }
    /// Reads until `text` has come, which is where it goes on.
    std::optional<std::string> readUntil(std::string_view text) {
        while (pending_.find(text) == std::string::npos)
            if (readMore(output_, pending_) <= 0)
                return std::nullopt;
        auto before = pending_.substr(0, pending_.find(text) + text.size());
        pending_.erase(0, before.size());
        return before;
    }
    void signal(int number) const {
        if (!status_)
            ::kill(pid_, number);
    }
    /// Waits for its end: the exit status, or minus the signal that ended it. One that hangs is killed.
    int wait() {
        if (status_)
            return *status_;
        int status = 0;
        if (!readAll(errors_, errorText_)) // they end with the program
            signal(SIGKILL);
        ::waitpid(pid_, &status, 0);
        return *(status_ = WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status));
    }
    /// Once it has ended: what is left of its standard output, and all of its standard error.
    std::string rest() {
        readAll(output_, pending_);
        return pending_;
    }
    const std::string& errors() {
        wait();
        return errorText_;
    }

private:
    /// How much has come; 0 at the end, and less when nothing comes for a long time.
    static ssize_t readMore(int descriptor, std::string& text) {
        constexpr int PATIENCE = 20'000; // ms; a machine may be slow
        pollfd ready{descriptor, POLLIN, 0};
        char buffer[65536];
        const auto count = ::poll(&ready, 1, PATIENCE) == 1 ? ::read(descriptor, buffer, sizeof buffer) : -1;
        text.append(buffer, count > 0 ? static_cast<std::size_t>(count) : 0);
        return count;
    }
    /// Reads to the end; false when nothing comes for a long time.
    static bool readAll(int descriptor, std::string& text) {
        ssize_t count = 1;
        while (count > 0)
            count = readMore(descriptor, text);
        return count == 0;
    }

    pid_t pid_ = -1;
    std::optional<int> status_;
    int input_ = -1, output_ = -1, errors_ = -1;
    std::string pending_, errorText_;
};

} // namespace lumbra

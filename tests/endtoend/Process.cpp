#include "Process.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>
#include <utility>

namespace lumbra {

namespace {

// For what should come at once; a machine may be slow.
constexpr int PATIENCE = 20'000; // ms

void closeOnce(int& descriptor) {
    if (descriptor >= 0)
        ::close(std::exchange(descriptor, -1));
}

} // namespace

Process::Process(std::vector<std::string> arguments, Streams streams, std::vector<std::string> environment) {
    std::array<int, 2> input{};
    std::array<int, 2> output{};
    std::array<int, 2> error{};
    if (streams == Streams::Pipes) {
        if (::pipe2(input.data(), O_CLOEXEC) != 0 || ::pipe2(output.data(), O_CLOEXEC) != 0)
            std::abort();
    } else {
        const int master = ::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
        std::array<char, 64> name{};
        if (master < 0 || ::grantpt(master) != 0 || ::unlockpt(master) != 0 ||
            ::ptsname_r(master, name.data(), name.size()) != 0)
            std::abort();
        const int slave = ::open(name.data(), O_RDWR | O_NOCTTY | O_CLOEXEC);
        input = {slave, master};
        output = {::fcntl(master, F_DUPFD_CLOEXEC, 0), ::fcntl(slave, F_DUPFD_CLOEXEC, 0)};
    }
    if (::pipe2(error.data(), O_CLOEXEC) != 0)
        std::abort();
    std::vector<char*> argv;
    argv.reserve(arguments.size() + 1);
    for (auto& argument : arguments)
        argv.push_back(argument.data());
    argv.push_back(nullptr);
    pid_ = ::fork();
    if (pid_ == 0) {
        ::setsid();
        ::dup2(input[0], STDIN_FILENO);
        ::dup2(output[1], STDOUT_FILENO);
        ::dup2(error[1], STDERR_FILENO);
        for (auto& entry : environment)
            ::putenv(entry.data());
        ::execv(argv[0], argv.data());
        ::_exit(127);
    }
    ::close(input[0]);
    ::close(output[1]);
    ::close(error[1]);
    input_ = input[1];
    output_ = output[0];
    errors_ = error[0];
    std::signal(SIGPIPE, SIG_IGN);
}

Process::~Process() {
    if (!status_) {
        signal(SIGKILL);
        wait();
    }
    closeOnce(input_);
    closeOnce(output_);
    closeOnce(errors_);
}

void Process::write(std::string_view bytes) {
    while (!bytes.empty()) {
        const auto count = ::write(input_, bytes.data(), bytes.size());
        if (count < 0)
            return; // it has ended, which the test sees at its status
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
}

void Process::endInput() {
    closeOnce(input_);
}

void Process::closeOutput() {
    closeOnce(output_);
}

bool Process::readMore() {
    pollfd descriptor{output_, POLLIN, 0};
    if (output_ < 0 || ::poll(&descriptor, 1, PATIENCE) != 1)
        return false;
    std::array<char, 65536> buffer{};
    const auto count = ::read(output_, buffer.data(), buffer.size());
    if (count <= 0)
        return false;
    pending_.append(buffer.data(), static_cast<std::size_t>(count));
    return true;
}

std::optional<std::string> Process::readLine() {
    auto line = readUntil("\n");
    if (line)
        line->pop_back();
    return line;
}

std::optional<std::string> Process::readUntil(std::string_view text) {
    std::size_t found = 0;
    while ((found = pending_.find(text)) == std::string::npos)
        if (!readMore())
            return std::nullopt;
    auto before = pending_.substr(0, found + text.size());
    pending_.erase(0, before.size());
    return before;
}

void Process::signal(int number) {
    if (!status_)
        ::kill(pid_, number);
}

int Process::wait() {
    if (!status_) {
        int status = 0;
        while (::waitpid(pid_, &status, 0) < 0 && errno == EINTR) {
        }
        status_ = WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
    }
    return *status_;
}

std::string Process::errors() {
    wait();
    std::string text;
    std::array<char, 4096> buffer{};
    for (ssize_t count = 0; (count = ::read(errors_, buffer.data(), buffer.size())) > 0;)
        text.append(buffer.data(), static_cast<std::size_t>(count));
    return text;
}

} // namespace lumbra

#include "system/SignalPipe.h"

#include <cerrno>
#include <csignal>
#include <cstddef>
#include <fcntl.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace lumbra {

namespace {

struct Handled {
    volatile std::sig_atomic_t pipe = -1;
    volatile std::sig_atomic_t once = 0;
    struct sigaction former {};
};
std::array<Handled, NSIG> handled;
volatile std::sig_atomic_t firstSignal = 0;

/// The main loop has not ended the program in time. The signal has its default action by now.
void endBySignal(int) {
    ::raise(firstSignal);
}

void handleSignal(int signal) {
    const int error = errno;
    const auto& entry = handled[static_cast<std::size_t>(signal)];
    for (int other = 1; other < NSIG; ++other)
        if (const auto& same = handled[static_cast<std::size_t>(other)]; same.once && same.pipe == entry.pipe)
            ::signal(other, SIG_DFL); // NOLINT: the system's macro
    if (entry.once) {
        firstSignal = signal;
        ::signal(SIGALRM, endBySignal);
        ::alarm(SignalPipe::LONGEST_END.count());
    }
    const auto byte = static_cast<unsigned char>(signal);
    // If the pipe is full, enough signals are pending.
    [[maybe_unused]] const auto written = ::write(entry.pipe, &byte, 1);
    errno = error;
}

} // namespace

SignalPipe::SignalPipe(std::initializer_list<int> signals, Takes takes) {
    if (::pipe2(ends_.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        throw std::system_error(errno, std::generic_category(), "a pipe for signals");
    for (const int signal : signals) {
        auto& entry = handled.at(static_cast<std::size_t>(signal));
        ::sigaction(signal, nullptr, &entry.former);
        if (signal == SIGHUP && entry.former.sa_handler == SIG_IGN) // NOLINT: the system's macro
            continue;
        signals_.push_back(signal);
        entry.pipe = ends_[1];
        entry.once = takes == Takes::First ? 1 : 0;
        struct sigaction action {};
        action.sa_handler = handleSignal;
        ::sigemptyset(&action.sa_mask);
        ::sigaction(signal, &action, nullptr);
    }
}

SignalPipe::~SignalPipe() {
    for (const int signal : signals_) {
        auto& entry = handled.at(static_cast<std::size_t>(signal));
        ::sigaction(signal, &entry.former, nullptr);
        if (std::exchange(entry.once, 0))
            ::alarm(0);
    }
    ::close(ends_[0]);
    ::close(ends_[1]);
}

} // namespace lumbra

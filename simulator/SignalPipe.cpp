#include "simulator/SignalPipe.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace lumbra::sim {

namespace {

volatile std::sig_atomic_t writeEnd = -1;

void tell(int) {
    const int error = errno;
    const char byte = 0;
    [[maybe_unused]] const auto written = ::write(writeEnd, &byte, 1);
    errno = error;
}

} // namespace

SignalPipe::SignalPipe(std::initializer_list<int> signals) {
    if (::pipe2(ends_.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    writeEnd = ends_[1];
    struct sigaction action {};
    action.sa_handler = tell;
    action.sa_flags = static_cast<int>(SA_RESTART | SA_RESETHAND);
    for (const int signal : signals) {
        struct sigaction former {};
        ::sigaction(signal, &action, &former);
        if (signal == SIGHUP && former.sa_handler == SIG_IGN) // NOLINT: the system's macro
            ::sigaction(signal, &former, nullptr);
    }
}

} // namespace lumbra::sim

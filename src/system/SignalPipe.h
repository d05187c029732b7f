#pragma once

#include <array>
#include <chrono>
#include <cstdint>
#include <initializer_list>
#include <vector>

namespace lumbra {

/// Turns signals into bytes of a pipe that the main loop watches. Destroying it restores the previous
/// handlers. A signal belongs to one pipe at a time. Main thread only.
class SignalPipe {
public:
    enum class Takes : std::uint8_t {
        Every, ///< every signal
        First, ///< the first one; from then on all have their default action, so the next one ends the process
    };
    /// After the first one of `Takes::First` the pipe must be destroyed within this time. Else the signal ends the
    /// process: the main loop hangs.
    static constexpr std::chrono::duration<unsigned> LONGEST_END{5};

    /// Throws std::system_error if the system gives no pipe. If the parent process ignores SIGHUP (nohup), it
    /// stays ignored.
    SignalPipe(std::initializer_list<int> signals, Takes takes);
    ~SignalPipe();
    SignalPipe(const SignalPipe&) = delete;
    SignalPipe& operator=(const SignalPipe&) = delete;

    /// The read end of the pipe, which does not block: each byte is the number of a signal.
    int descriptor() const { return ends_[0]; }

private:
    std::vector<int> signals_;
    std::array<int, 2> ends_{};
};

} // namespace lumbra

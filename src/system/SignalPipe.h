#pragma once

#include <array>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <vector>

namespace lumbra {

/// Turns signals into bytes of a pipe that the main loop watches. Destroying it brings back the handling from before. A
/// signal belongs to one pipe at a time. Main thread only.
class SignalPipe {
public:
    enum class Takes : std::uint8_t {
        Every, ///< every signal
        First, ///< the first one; all of them then have their default action, so that the next one ends the process
    };

    /// Throws std::system_error where the system gives no pipe. SIGHUP stays ignored where the parent process had
    /// it ignored (nohup).
    SignalPipe(std::initializer_list<int> signals, Takes takes);
    ~SignalPipe();
    SignalPipe(const SignalPipe&) = delete;
    SignalPipe& operator=(const SignalPipe&) = delete;

    /// Readable while a signal waits.
    int descriptor() const { return ends_[0]; }
    /// The next signal that waits.
    std::optional<int> next();

private:
    std::vector<int> signals_;
    std::array<int, 2> ends_{-1, -1};
};

} // namespace lumbra

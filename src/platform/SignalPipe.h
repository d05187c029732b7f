#pragma once

#include <array>
#include <initializer_list>
#include <optional>
#include <vector>

namespace lumbra {

/// Turns signals into bytes of a pipe that the main loop watches. The former handling comes back when it is
/// destroyed. A signal belongs to one pipe at a time.
class SignalPipe {
public:
    /// Throws std::system_error where the system gives no pipe. A hang-up that the parent has had ignored
    /// stays ignored.
    explicit SignalPipe(std::initializer_list<int> signals);
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

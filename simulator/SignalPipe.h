#pragma once

#include <array>
#include <initializer_list>

namespace lumbra::sim {

/// Turns the first of each of some signals into a byte of a pipe that an event loop watches; a second one of
/// the same takes the system's default action, and so ends a program that hangs. One at a time.
class SignalPipe {
public:
    /// A hang-up that the parent has had ignored stays ignored.
    explicit SignalPipe(std::initializer_list<int> signals);
    SignalPipe(const SignalPipe&) = delete;
    SignalPipe& operator=(const SignalPipe&) = delete;

    /// Readable once a signal has come; -1 if the system gave no pipe, the signals are then as they were. It
    /// and the handlers stay until the program ends.
    int descriptor() const { return ends_[0]; }

private:
    std::array<int, 2> ends_{-1, -1};
};

} // namespace lumbra::sim

#pragma once

#include <chrono>
#include <functional>

namespace lumbra {

/// The main thread's queue of work: the application's event loop and its only timer.
class MainQueue {
public:
    using Work = std::function<void()>;

    virtual ~MainQueue() = default;

    /// Runs `work` in a later turn of the main loop, never inside this call, in the order of the calls. Any
    /// thread.
    virtual void post(Work work) = 0;

    /// Runs `work` once on the main thread, no earlier than `delay` from now. Work due at the same instant
    /// runs in the order of the calls. It cannot be cancelled. Main thread only.
    virtual void postAfter(std::chrono::nanoseconds delay, Work work) = 0;
};

} // namespace lumbra

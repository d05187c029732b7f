#pragma once

#include <chrono>
#include <functional>

namespace lumbra {

/// The main thread's queue of work: the application's event loop and its only timer.
class MainQueue {
public:
    using Work = std::function<void()>;

    virtual ~MainQueue() = default;

    /// Runs `work` in a later turn of the main loop, never inside this call; work posted earlier runs
    /// earlier. Any thread.
    virtual void post(Work work) = 0;

    /// Runs `work` once, `delay` from now, on the main thread. Works due at the same instant run in the order
    /// of their calls; there is no way to cancel one. Main thread only.
    virtual void postAfter(std::chrono::nanoseconds delay, Work work) = 0;
};

} // namespace lumbra

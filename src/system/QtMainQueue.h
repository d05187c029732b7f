#pragma once

#include "platform/MainQueue.h"

#include <QSocketNotifier>
#include <QTimer>

#include <chrono>
#include <deque>
#include <map>
#include <mutex>

namespace lumbra {

/// The main queue, on the event loop of the thread that creates it. Needs the application object. The
/// constructor throws std::system_error if the system gives no descriptor.
///
/// Each turn runs the work that was posted before the turn began, so that work that posts more work leaves
/// time for sockets and windows. Idle, it causes no wake-ups. Work that has not run when the queue is
/// destroyed is dropped.
class QtMainQueue final : public MainQueue {
public:
    QtMainQueue();
    ~QtMainQueue() override;
    QtMainQueue(const QtMainQueue&) = delete;
    QtMainQueue& operator=(const QtMainQueue&) = delete;

    void post(Work work) override;
    /// Never runs `work` early. A negative delay counts as zero.
    void postAfter(std::chrono::nanoseconds delay, Work work) override;

    /// Destroys all pending work without running it. A program calls it before it ends, because pending work
    /// may own objects that must not outlive others. Main thread only.
    void drop();

private:
    using Clock = std::chrono::steady_clock;

    void runPosted();
    void runDue();
    void armTimer();

    // The hand-over between threads uses only a lock and a descriptor that the event loop polls.
    std::mutex mutex_;
    std::deque<Work> posted_;
    bool wakeRequested_ = false;
    const int wakeDescriptor_;
    QSocketNotifier wakeNotifier_;

    std::multimap<Clock::time_point, Work> delayed_; ///< by the time when it is due, and then by the call
    QTimer timer_;
};

} // namespace lumbra

#pragma once

#include "app/Application.h"
#include "platform/Lifetime.h"
#include "script/Command.h"
#include "toolkit/Signal.h"

#include <chrono>
#include <functional>

namespace lumbra::script {

/// A `wait` command from its start to its outcome. Destroying it cancels it: no observer or posted work of it
/// runs afterwards. Main thread only.
class PendingWait {
public:
    /// What the wait is for, besides time.
    struct Condition {
        std::function<bool()> isMet;
        /// Calls its argument whenever `isMet` may have changed, while the subscription lives.
        std::function<Subscription(std::function<void()>)> observe;
        /// The error message if the time is up.
        std::function<std::string()> explain;
    };
    /// Receives the outcome, once, in a turn of its own. It destroys the wait.
    using Ended = std::function<void(const Outcome&)>;

    /// Waits for `time` and succeeds. `queue` outlives the wait.
    PendingWait(MainQueue& queue, std::chrono::nanoseconds time, Ended ended);
    /// Waits until the condition is met, or fails after `longest`. `queue` outlives the wait.
    PendingWait(MainQueue& queue, std::chrono::nanoseconds longest, Condition condition, Ended ended);

private:
    void check();
    void endWell();
    void timeOut();

    MainQueue& queue_;
    Condition condition_;
    Ended ended_;
    Subscription change_;
    Lifetime life_;
};

} // namespace lumbra::script

#pragma once

#include "app/Application.h"
#include "console/ConsoleCommand.h"
#include "toolkit/Signal.h"

#include <chrono>
#include <functional>
#include <memory>

namespace lumbra::console {

/// One `wait` command from its start to its outcome. Destroying it calls it off: nothing that it observes or has
/// posted reaches it afterwards. Main thread only.
class PendingWait {
public:
    /// What is waited for besides time.
    struct Condition {
        std::function<bool()> isMet;
        /// Calls its argument whenever `isMet` may have changed, for as long as the subscription lives.
        std::function<Subscription(std::function<void()>)> observe;
        /// Says why the wait failed, at its deadline.
        std::function<std::string()> explain;
    };
    /// Receives the outcome, once, in a turn of its own. May destroy the wait.
    using Ended = std::function<void(const Outcome&)>;

    /// Lets `time` pass. `queue` outlives the wait.
    PendingWait(MainQueue& queue, std::chrono::nanoseconds time, Ended ended);
    /// Waits until the condition is met; fails after `longest`.
    PendingWait(MainQueue& queue, std::chrono::nanoseconds longest, Condition condition, Ended ended);

private:
    void check();
    std::function<void()> whileAlive(void (PendingWait::*step)());
    void endWell();
    void timeOut();

    MainQueue& queue_;
    Condition condition_;
    Ended ended_;
    bool isMet_ = false;
    Subscription change_;
    std::shared_ptr<const char> life_ = std::make_shared<const char>();
};

} // namespace lumbra::console

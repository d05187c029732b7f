#include "script/PendingWait.h"

#include <utility>

namespace lumbra::script {

PendingWait::PendingWait(MainQueue& queue, std::chrono::nanoseconds time, Ended ended)
    : queue_(queue), ended_(std::move(ended)) {
    queue_.postAfter(time, life_.guard([this] { endWell(); }));
}

PendingWait::PendingWait(MainQueue& queue, std::chrono::nanoseconds longest, Condition condition, Ended ended)
    : queue_(queue), condition_(std::move(condition)), ended_(std::move(ended)) {
    change_ = condition_.observe([this] { check(); });
    check();
    if (!condition_.isMet())
        queue_.postAfter(longest, life_.guard([this] { timeOut(); }));
}

void PendingWait::check() {
    if (!condition_.isMet())
        return;
    // Work that the application has posted by now runs before the next command, such as the query of a link
    // that has just opened.
    queue_.post(life_.guard([this] { endWell(); }));
}

void PendingWait::endWell() {
    const auto ended = std::move(ended_);
    ended(Done{});
}

void PendingWait::timeOut() {
    if (condition_.isMet())
        return; // the good end is posted
    const auto ended = std::move(ended_);
    ended(Failed{condition_.explain()});
}

} // namespace lumbra::script

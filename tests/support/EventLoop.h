#pragma once

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QTimer>

namespace lumbra {

/// Runs the event loop until `condition` holds; false when that takes far too long.
template <typename Condition>
bool runUntil(Condition condition) {
    QTimer poll; // wakes the loop for a condition that it can't see
    poll.start(1);
    const QDeadlineTimer deadline(20'000);
    while (!condition()) {
        if (deadline.hasExpired())
            return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return true;
}

/// Runs whatever is ready, and what that makes ready, long enough for an event too many to show.
inline void settle() {
    const QDeadlineTimer end(20);
    int turns = 0;
    runUntil([&] { return ++turns > 20 && end.hasExpired(); });
}

} // namespace lumbra

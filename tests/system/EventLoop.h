#pragma once

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>

namespace lumbra {

/// Runs the event loop until `condition` holds; false where it does not within ten seconds.
template <typename Condition>
bool runUntil(Condition condition) {
    QTimer poll; // wakes the loop for a condition that it can't see
    poll.start(1);
    QElapsedTimer elapsed;
    elapsed.start();
    while (!condition()) {
        if (elapsed.hasExpired(10000))
            return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return true;
}

/// Runs whatever is ready, and what that makes ready, for some turns: long enough for an event too many to
/// show.
inline void settle() {
    for (int turn = 0; turn < 20; ++turn) {
        QCoreApplication::processEvents();
        QTimer::singleShot(1, [] {});
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
}

} // namespace lumbra

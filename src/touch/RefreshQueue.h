#pragma once

#include "platform/Lifetime.h"
#include "platform/MainQueue.h"

#include <QPointer>

#include <chrono>
#include <vector>

namespace lumbra {

class Adapter;

/// Merges bursts of changes: a marked adapter is refreshed in the next turn of the main loop, and after that
/// at most once a frame. Idle, it runs no timer. Main thread only.
class RefreshQueue {
public:
    /// One frame at 60 Hz.
    static constexpr std::chrono::microseconds FRAME{16'667};

    /// `queue` outlives this object. Work that is still queued after that does nothing.
    explicit RefreshQueue(MainQueue& queue) : queue_(queue) {}
    RefreshQueue(const RefreshQueue&) = delete;
    RefreshQueue& operator=(const RefreshQueue&) = delete;

    /// Schedules one refresh of `adapter`, which may be destroyed before.
    void mark(Adapter& adapter);

private:
    void refreshMarked();
    void frameOver();

    MainQueue& queue_;
    std::vector<QPointer<Adapter>> marked_;
    bool waiting_ = false; ///< a refresh is posted, or the frame is not over
    Lifetime life_;
};

} // namespace lumbra

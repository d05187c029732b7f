#pragma once

#include "platform/MainQueue.h"

#include <algorithm>
#include <deque>
#include <mutex>
#include <vector>

namespace lumbra {

/// A main queue in virtual time: nothing runs and no time passes until the test says so. Any thread may post;
/// the rest is for the test's own thread.
class ManualQueue final : public MainQueue {
public:
    void post(Work work) override {
        const std::lock_guard lock(mutex_);
        posted_.push_back(std::move(work));
    }

    void postAfter(std::chrono::nanoseconds delay, Work work) override {
        const auto due = now_ + std::max(delay, std::chrono::nanoseconds::zero());
        // Behind everything that is due at the same time.
        const auto place = std::upper_bound(delayed_.begin(), delayed_.end(), due,
                                            [](auto time, const Delayed& other) { return time < other.due; });
        delayed_.insert(place, {due, std::move(work)});
    }

    /// One turn of the loop: what was posted before it began. The number of pieces run.
    std::size_t runTurn() {
        std::deque<Work> turn;
        {
            const std::lock_guard lock(mutex_);
            turn.swap(posted_);
        }
        for (auto& work : turn) {
            work();
            work = nullptr;
        }
        return turn.size();
    }

    /// Turns until nothing is posted; no time passes. The number of pieces run.
    std::size_t runPosted() {
        std::size_t count = 0;
        while (const auto ran = runTurn())
            count += ran;
        return count;
    }

    /// Lets `duration` pass: runs what is posted, then all that is due until then, in order and each at its
    /// own time, also what becomes due meanwhile; after each piece, what it posted.
    void advance(std::chrono::nanoseconds duration) {
        const auto end = now_ + duration;
        runPosted();
        while (!delayed_.empty() && delayed_.front().due <= end) {
            now_ = delayed_.front().due;
            const auto work = std::move(delayed_.front().work);
            delayed_.erase(delayed_.begin());
            work();
            runPosted();
        }
        now_ = end;
    }

    /// Lets time pass until the next delayed piece is due, and runs what `advance` would. False where none
    /// waits.
    bool runNext() {
        runPosted();
        if (delayed_.empty())
            return false;
        advance(delayed_.front().due - now_);
        return true;
    }

    /// The virtual time that has passed.
    std::chrono::nanoseconds now() const { return now_; }
    /// How many pieces of delayed work wait.
    std::size_t delayed() const { return delayed_.size(); }

private:
    struct Delayed {
        std::chrono::nanoseconds due;
        Work work;
    };

    std::mutex mutex_;
    std::deque<Work> posted_;
    std::vector<Delayed> delayed_;
    std::chrono::nanoseconds now_{};
};

} // namespace lumbra

#include "system/ThreadWorker.h"

#include <system_error>
#include <utility>

namespace lumbra {

void ThreadWorker::stop() {
    {
        const std::lock_guard lock(mutex_);
        stopping_ = true;
    }
    changed_.notify_one();
    if (thread_.joinable())
        thread_.join();
    posted_.clear();
}

bool ThreadWorker::post(std::function<void()> work) {
    if (stopping_)
        return false;
    if (!thread_.joinable()) {
        try {
            thread_ = std::thread([this] { run(); });
        } catch (const std::system_error&) {
            return false;
        }
    }
    {
        const std::lock_guard lock(mutex_);
        posted_.push_back(std::move(work));
    }
    changed_.notify_one();
    return true;
}

void ThreadWorker::run() {
    std::unique_lock lock(mutex_);
    for (;;) {
        changed_.wait(lock, [this] { return stopping_ || !posted_.empty(); });
        if (stopping_)
            return;
        auto work = std::move(posted_.front());
        posted_.pop_front();
        lock.unlock();
        work();
        work = nullptr; // destroy what it owns without the lock
        lock.lock();
    }
}

} // namespace lumbra

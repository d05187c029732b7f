#include "qt/ThreadWorker.h"

#include <utility>

namespace lumbra {

ThreadWorker::~ThreadWorker() {
    {
        const std::lock_guard lock(mutex_);
        stopping_ = true;
    }
    changed_.notify_one();
    if (thread_.joinable())
        thread_.join();
}

void ThreadWorker::post(std::function<void()> work) {
    if (!thread_.joinable())
        thread_ = std::thread([this] { run(); });
    {
        const std::lock_guard lock(mutex_);
        posted_.push_back(std::move(work));
    }
    changed_.notify_one();
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
        work = nullptr; // what it holds goes before the lock is taken again
        lock.lock();
    }
}

} // namespace lumbra

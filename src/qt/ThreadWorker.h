#pragma once

#include "platform/Worker.h"

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>

namespace lumbra {

/// One background thread, started by the first `post`, that runs its work in order. The destructor waits for
/// the work under way and drops what has not begun.
class ThreadWorker final : public Worker {
public:
    ThreadWorker() = default;
    ~ThreadWorker() override;
    ThreadWorker(const ThreadWorker&) = delete;
    ThreadWorker& operator=(const ThreadWorker&) = delete;

    /// Throws std::system_error where the system gives no thread.
    void post(std::function<void()> work) override;

private:
    void run();

    std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<std::function<void()>> posted_;
    bool stopping_ = false;
    std::thread thread_;
};

} // namespace lumbra

#pragma once

#include "platform/Worker.h"

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>

namespace lumbra {

/// One background thread, started by the first `post`.
class ThreadWorker final : public Worker {
public:
    ThreadWorker() = default;
    ~ThreadWorker() override { stop(); }
    ThreadWorker(const ThreadWorker&) = delete;
    ThreadWorker& operator=(const ThreadWorker&) = delete;

    bool post(std::function<void()> work) override;
    /// Waits for the piece of work that is running and drops the rest; later posts are refused. Everything
    /// that work uses must live until this returns. Main thread only.
    void stop();

private:
    void run();

    std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<std::function<void()>> posted_;
    bool stopping_ = false;
    std::thread thread_;
};

} // namespace lumbra

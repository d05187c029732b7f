#pragma once

#include "platform/Worker.h"

#include <deque>

namespace lumbra {

/// A worker that runs its work on the test's own thread, when told.
class ManualWorker final : public Worker {
public:
    bool hasThread = true;

    bool post(std::function<void()> work) override {
        if (hasThread)
            posted_.push_back(std::move(work));
        return hasThread;
    }
    /// Runs all work, also what is posted meanwhile. The number of pieces run.
    std::size_t run() {
        std::size_t count = 0;
        for (; !posted_.empty(); ++count) {
            const auto work = std::move(posted_.front());
            posted_.pop_front();
            work();
        }
        return count;
    }

private:
    std::deque<std::function<void()>> posted_;
};

} // namespace lumbra

#pragma once

#include "ManualQueue.h"
#include "platform/Worker.h"

namespace lumbra {

/// A worker that runs its work on the test's own thread, when told.
class ManualWorker final : public Worker {
public:
    bool hasThread = true;

    bool post(std::function<void()> work) override {
        if (hasThread)
            queue_.post(std::move(work));
        return hasThread;
    }
    /// Runs all work, also what is posted meanwhile. The number of pieces run.
    std::size_t run() { return queue_.runPosted(); }

private:
    ManualQueue queue_;
};

} // namespace lumbra

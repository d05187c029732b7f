#pragma once

#include <functional>

namespace lumbra {

/// A background thread of default priority for work that must not hold up the main loop.
class Worker {
public:
    virtual ~Worker() = default;

    /// Runs `work` soon on a thread that is not the main thread. Main thread only.
    virtual void post(std::function<void()> work) = 0;
};

} // namespace lumbra

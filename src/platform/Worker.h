#pragma once

#include <functional>

namespace lumbra {

/// A background thread of default priority for work that must not hold up the main loop.
class Worker {
public:
    virtual ~Worker() = default;

    /// Runs `work` soon on a thread that is not the main thread; pieces of work run one after another, in order. False,
    /// and `work` never runs, where the system gives no thread. Main thread only.
    [[nodiscard]] virtual bool post(std::function<void()> work) = 0;
};

} // namespace lumbra

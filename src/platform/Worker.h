#pragma once

#include <functional>

namespace lumbra {

/// A background thread for work that must not hold up the main loop.
class Worker {
public:
    virtual ~Worker() = default;

    /// Runs `work` once on the background thread. Pieces of work run one after another, in the order of the
    /// calls; they must not throw. Returns false, and never runs `work`, if the system gives no thread. Main
    /// thread only.
    [[nodiscard]] virtual bool post(std::function<void()> work) = 0;
};

} // namespace lumbra

#pragma once

#include "toolkit/Signal.h"

#include <functional>
#include <string_view>
#include <utility>

namespace lumbra::script {

/// Where replies and events go: to one reader, who may be slow. Main thread only.
class Output {
public:
    virtual ~Output() = default;

    /// Takes one or more complete lines, with their line ends, and never waits for the reader. Must not destroy
    /// its caller.
    virtual void write(std::string_view lines) = 0;
    /// The reader has not taken everything yet.
    virtual bool isBehind() const = 0;
    /// Calls `observer` each time the reader has caught up after being behind.
    Subscription onCaughtUp(std::function<void()> observer) {
        return caughtUp_.subscribe(std::move(observer));
    }

protected:
    void announceCaughtUp() const { caughtUp_.emit(); }

private:
    Signal<> caughtUp_;
};

} // namespace lumbra::script

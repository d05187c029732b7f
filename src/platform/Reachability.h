#pragma once

namespace lumbra {

/// Tells whether this device has a usable network at all.
class Reachability {
public:
    virtual ~Reachability() = default;

    /// True when there is a route that needs no connection to be established first. Sends nothing. Any
    /// thread.
    virtual bool isReachable() const = 0;
};

} // namespace lumbra

#pragma once

namespace lumbra {

/// Tells whether this device has a usable network.
class Reachability {
public:
    virtual ~Reachability() = default;

    /// True if some route needs no connection to be established first. Sends nothing. Any thread.
    virtual bool isReachable() const = 0;
};

} // namespace lumbra

#pragma once

#include "platform/Reachability.h"

namespace lumbra {

/// Always returns the same answer: for a unit on the loopback, which needs no network, and for tests.
class FixedReachability final : public Reachability {
public:
    explicit FixedReachability(bool reachable) : reachable_(reachable) {}
    bool isReachable() const override { return reachable_; }

private:
    const bool reachable_;
};

} // namespace lumbra

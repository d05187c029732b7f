#pragma once

#include "platform/Reachability.h"

namespace lumbra {

/// Reachable while an interface other than the loopback is up and has a carrier and an address.
class NetworkReachability final : public Reachability {
public:
    bool isReachable() const override;
};

} // namespace lumbra

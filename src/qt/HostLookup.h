#pragma once

#include "platform/MainQueue.h"
#include "qt/SocketAddress.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace lumbra {

/// One run of a resolver that holds up nobody: neither the main loop nor, as a thread pool would, the
/// program's exit while the name service does not answer. Main thread only.
class HostLookup {
public:
    using Done = std::function<void(std::vector<SocketAddress> addresses)>;

    /// Starts the lookup; `done` gets what it found in a later turn of `queue`, which outlives this object.
    /// Throws std::system_error where the system gives no thread.
    HostLookup(MainQueue& queue, Resolver resolver, std::string host, std::uint16_t port, Done done);
    /// Calls the lookup off: `done` is not called any more.
    ~HostLookup();
    HostLookup(const HostLookup&) = delete;
    HostLookup& operator=(const HostLookup&) = delete;

private:
    struct Shared;
    std::shared_ptr<Shared> shared_;
};

} // namespace lumbra

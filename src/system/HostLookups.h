#pragma once

#include "platform/MainQueue.h"
#include "system/SocketAddress.h"

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace lumbra {

/// Looks up host names off the main loop, each in a thread of its own. A name service that does not answer
/// holds up neither the loop nor the end of the program. At most one look-up of a host and port runs at a
/// time; requests for it that arrive meanwhile share its result. Main thread only.
class HostLookups {
public:
    /// Receives the addresses found; none if the host is unknown. Called on the main thread.
    using Callback = std::function<void(const std::vector<SocketAddress>& addresses)>;
    /// A pending request. Destroying it cancels the callback.
    using Request = std::shared_ptr<const Callback>;

    /// `queue` outlives this object. `resolver` is called on the look-up threads, which may outlive this
    /// object.
    HostLookups(MainQueue& queue, Resolver resolver);
    /// Cancels all requests. A thread that still waits for the name service touches neither the queue nor
    /// this object afterwards.
    ~HostLookups();
    HostLookups(const HostLookups&) = delete;
    HostLookups& operator=(const HostLookups&) = delete;

    /// Requests the addresses of an ASCII host name. `callback` gets them in a later turn of the queue.
    /// Returns null, and never calls `callback`, if the system gives no thread.
    [[nodiscard]] Request lookUp(const std::string& host, std::uint16_t port, Callback callback);

private:
    using Place = std::pair<std::string, std::uint16_t>;
    struct Mailbox;

    void answer(const Place& place, const std::vector<SocketAddress>& addresses);

    const Resolver resolver_;
    std::shared_ptr<Mailbox> mailbox_; ///< shared with the threads
    std::map<Place, std::vector<std::weak_ptr<const Callback>>> underWay_;
};

} // namespace lumbra

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

/// Looks host names up beside the main loop, each in a thread of its own, which holds up neither the loop nor the end of
/// the program while the name service does not answer. For one host and port at most one look-up is under way: whoever
/// asks meanwhile gets its answer, too. Main thread only.
class HostLookups {
public:
    /// Receives the addresses found, none where the host is unknown.
    using Done = std::function<void(const std::vector<SocketAddress>& addresses)>;
    /// Keeps a question open; once it is destroyed, its `Done` is not called any more.
    using Question = std::shared_ptr<const Done>;

    /// `queue` outlives this object and every thread's last use of it.
    HostLookups(MainQueue& queue, Resolver resolver);
    /// Calls all look-ups off; a thread that still waits for the name service touches nothing any more.
    ~HostLookups();
    HostLookups(const HostLookups&) = delete;
    HostLookups& operator=(const HostLookups&) = delete;

    /// Asks for the addresses of a name in ASCII; `done` gets them in a later turn of the queue. Null, and `done` is never called, where the
    /// system gives no thread.
    [[nodiscard]] Question ask(const std::string& host, std::uint16_t port, Done done);

private:
    using Place = std::pair<std::string, std::uint16_t>;
    struct Mailbox;

    void answer(const Place& place, const std::vector<SocketAddress>& addresses);

    const Resolver resolver_;
    std::shared_ptr<Mailbox> mailbox_; ///< where the threads leave what they found
    std::map<Place, std::vector<std::weak_ptr<const Done>>> underWay_;
};

} // namespace lumbra

#include "system/SocketStreamFactory.h"

#include "system/SocketConnection.h"

#include <memory>
#include <utility>

namespace lumbra {

SocketStreamFactory::SocketStreamFactory(MainQueue& queue, std::chrono::milliseconds deadline,
                                         Resolver resolver)
    : queue_(queue), deadline_(deadline), lookups_(queue, std::move(resolver)) {}

StreamPair SocketStreamFactory::createPair(const std::string& host, std::uint16_t port) {
    return std::make_shared<SocketConnection>(queue_, lookups_, host, port, deadline_)->createStreams();
}

} // namespace lumbra

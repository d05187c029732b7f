#include "link/SharedLink.h"

#include "link/SharedConnection.h"
#include "link/Tap.h"

namespace lumbra {

SharedLink::SharedLink(MainQueue& queue, StreamFactory& network)
    : queue_(queue), network_(network), connections_(std::make_shared<Connections>()) {}

SharedLink::~SharedLink() = default;

StreamPair SharedLink::createPair(const std::string& host, std::uint16_t port) {
    auto find = [&queue = queue_, &network = network_, weak = std::weak_ptr(connections_),
                 place = std::pair(host, port)] {
        std::shared_ptr<SharedConnection> found;
        if (const auto connections = weak.lock()) {
            std::erase_if(*connections, [](const auto& other) { return other.second->isIdle(); });
            auto& connection = (*connections)[place];
            if (!connection)
                connection = std::make_shared<SharedConnection>(queue, network, place.first, place.second);
            found = connection;
        }
        return found;
    };
    return std::make_shared<Tap>(queue_, std::move(find))->createStreams();
}

} // namespace lumbra

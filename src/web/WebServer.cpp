#include "web/WebServer.h"

#include <utility>

namespace lumbra::web {

WebServer::WebServer(MainQueue& queue, HostRules hosts, std::function<bool()> hasRoom,
                     std::function<void(std::unique_ptr<QWebSocket>, ClientSocket&)> welcome)
    : hosts_(std::move(hosts)), with_{queue, hosts_, page_, std::move(hasRoom), std::move(welcome)} {}

void WebServer::incomingConnection(qintptr descriptor) {
    auto socket = std::make_unique<ClientSocket>(descriptor, with_.queue, counts_);
    if (!socket->isAdmitted())
        return; // which closes the connection
    socket->setParent(this);
    auto& admitted = *socket.release();
    new HttpExchange(admitted, with_);
}

} // namespace lumbra::web

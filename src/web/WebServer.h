#pragma once

#include "platform/MainQueue.h"
#include "web/ClientSocket.h"
#include "web/HostRules.h"
#include "web/HttpExchange.h"
#include "web/Page.h"

#include <QTcpServer>

#include <memory>

namespace lumbra::web {

/// Accepts browsers, serves the page to them and hands their WebSockets over. Main thread only.
class WebServer final : public QTcpServer {
    Q_OBJECT
public:
    /// `queue` outlives the server, which outlives the WebSockets.
    WebServer(MainQueue& queue, HostRules hosts, std::function<bool()> hasRoom,
              std::function<void(std::unique_ptr<QWebSocket>, ClientSocket&)> welcome);

protected:
    void incomingConnection(qintptr descriptor) override;

private:
    const HostRules hosts_;
    const Page page_;
    const HttpExchange::Surroundings with_;
    const std::shared_ptr<ClientCounts> counts_ = std::make_shared<ClientCounts>();
};

} // namespace lumbra::web

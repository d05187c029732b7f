#pragma once

#include "platform/Lifetime.h"
#include "platform/MainQueue.h"
#include "web/ClientSocket.h"
#include "web/HostRules.h"
#include "web/Page.h"
#include "web/RequestHead.h"

#include <QByteArray>
#include <QObject>
#include <QWebSocket>

#include <chrono>
#include <functional>
#include <memory>

namespace lumbra::web {

/// Reads the one request of a client, and answers it or makes a WebSocket of the connection. Main thread only.
class HttpExchange final : public QObject {
    Q_OBJECT
public:
    /// How long a client may take for the head of its request, and for an answer.
    static constexpr std::chrono::seconds HEAD_TIME{10};
    static constexpr std::chrono::seconds ANSWER_TIME{30};

    /// What it needs of the server. All outlive it.
    struct Surroundings {
        MainQueue& queue;
        const HostRules& hosts;
        const Page& page;
        std::function<bool()> hasRoom; ///< for one more WebSocket
        /// Takes a new WebSocket. The socket below lives longer, and ends after it.
        std::function<void(std::unique_ptr<QWebSocket>, ClientSocket&)> welcome;
    };

    /// Becomes a child of the socket, which ends with the exchange or with its WebSocket.
    HttpExchange(ClientSocket& socket, const Surroundings& with);

private:
    void read();
    QByteArray answerTo(const RequestHead& request) const;
    void answer(const QByteArray& bytes);
    void abortAfter(std::chrono::seconds time);
    void upgrade();

    ClientSocket& socket_;
    const Surroundings& with_;
    qint64 dropped_ = 0; ///< bytes behind the request
    Lifetime deadline_;
};

} // namespace lumbra::web

#include "web/HttpExchange.h"

#include "web/HttpAnswer.h"

#include <QWebSocketServer>

#include <string_view>
#include <sys/socket.h>
#include <utility>

namespace lumbra::web {

namespace {

constexpr std::string_view WEB_SOCKET_PATH = "/remote";
/// What a client may send behind its request while it reads the answer. To close a connection that has unread input
/// would take the answer from it.
constexpr qint64 MOST_DROPPED = 64 << 10;
constexpr std::chrono::seconds LINGER_TIME{2};

} // namespace

HttpExchange::HttpExchange(ClientSocket& socket, const Surroundings& with)
    : QObject(&socket), socket_(socket), with_(with) {
    connect(&socket_, &QAbstractSocket::disconnected, &socket_, &QObject::deleteLater);
    connect(&socket_, &QIODevice::readyRead, this, &HttpExchange::read);
    with_.queue.postAfter(HEAD_TIME, deadline_.guard([this] { answer(refusal(408)); }));
    read();
}

void HttpExchange::read() {
    const auto bytes = socket_.peek(static_cast<qint64>(MAX_HEAD));
    const auto parsed = parseRequestHead({bytes.constData(), static_cast<std::size_t>(bytes.size())});
    if (const auto* refused = std::get_if<RefusedHead>(&parsed))
        return answer(refusal(refused->status));
    const auto* request = std::get_if<RequestHead>(&parsed);
    if (!request)
        return;
    if (const auto bytesOfAnswer = answerTo(*request); !bytesOfAnswer.isEmpty())
        answer(bytesOfAnswer);
    else
        upgrade();
}

QByteArray HttpExchange::answerTo(const RequestHead& request) const {
    const bool isHead = request.method == "HEAD";
    if (!with_.hosts.isOurs(request.host))
        return refusal(421, isHead);
    if (!isHead && request.method != "GET")
        return refusal(405);
    if (request.hasBody)
        return refusal(400, isHead);
    if (request.path != WEB_SOCKET_PATH || request.upgrade == RequestHead::Upgrade::None) {
        const auto* file = with_.page.find(request.path);
        return file ? fileAnswer(*file, request) : refusal(404, isHead);
    }
    if (request.upgrade == RequestHead::Upgrade::Broken)
        return refusal(400, isHead);
    if (request.origin && !with_.hosts.isSameOrigin(*request.origin, request.host))
        return refusal(403);
    return with_.hasRoom() ? QByteArray() : refusal(503);
}

void HttpExchange::answer(const QByteArray& bytes) {
    disconnect(&socket_, &QIODevice::readyRead, this, nullptr);
    const auto drop = [this] {
        const auto count = socket_.skip(MOST_DROPPED);
        dropped_ += count;
        if (dropped_ > MOST_DROPPED)
            socket_.abort();
    };
    connect(&socket_, &QIODevice::readyRead, this, drop);
    connect(&socket_, &QIODevice::bytesWritten, this, [this] {
        if (socket_.bytesToWrite() > 0)
            return;
        // The client closes the connection once it has read the answer.
        ::shutdown(static_cast<int>(socket_.socketDescriptor()), SHUT_WR);
        abortAfter(LINGER_TIME);
    });
    abortAfter(ANSWER_TIME);
    socket_.write(bytes);
    drop();
}

void HttpExchange::abortAfter(std::chrono::seconds time) {
    deadline_ = {};
    with_.queue.postAfter(time, deadline_.guard([this] { socket_.abort(); }));
}

void HttpExchange::upgrade() {
    disconnect(&socket_, &QIODevice::readyRead, this, nullptr);
    abortAfter(HEAD_TIME); // it has its whole head, so this is at once
    // One for each connection: what it makes is of this connection.
    auto* handshake = new QWebSocketServer(QString(), QWebSocketServer::NonSecureMode, this);
    connect(handshake, &QWebSocketServer::newConnection, this, [this, handshake] {
        std::unique_ptr<QWebSocket> made(handshake->nextPendingConnection());
        made->setParent(nullptr);
        disconnect(&socket_, &QAbstractSocket::disconnected, &socket_, nullptr);
        // It does not own its socket.
        connect(made.get(), &QObject::destroyed, &socket_, &QObject::deleteLater);
        auto& socket = socket_;
        const auto& with = with_;
        deleteLater();
        with.welcome(std::move(made), socket);
    });
    handshake->handleConnection(&socket_);
}

} // namespace lumbra::web

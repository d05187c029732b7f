#include "web/Channel.h"

#include <algorithm>
#include <utility>

namespace lumbra::web {

Channel::Channel(MainQueue& queue, std::unique_ptr<QWebSocket> socket, ClientSocket& below, Delegate delegate)
    : queue_(queue), socket_(std::move(socket)), below_(below), delegate_(std::move(delegate)) {
    auto* const from = socket_.get();
    from->setMaxAllowedIncomingFrameSize(MOST_MESSAGE);
    from->setMaxAllowedIncomingMessageSize(MOST_MESSAGE);
    QObject::connect(from, &QWebSocket::textMessageReceived, context_.get(),
                     [this](const QString& text) { receive(text); });
    QObject::connect(from, &QWebSocket::textFrameReceived, context_.get(), [this] { heard(); });
    QObject::connect(from, &QWebSocket::pong, context_.get(), [this] { heard(); });
    QObject::connect(from, &QWebSocket::binaryFrameReceived, context_.get(), [this] {
        close(QWebSocketProtocol::CloseCodeDatatypeNotSupported, QStringLiteral("messages are text"));
    });
    QObject::connect(from, &QWebSocket::bytesWritten, context_.get(), [this] { taken(); });
    QObject::connect(from, &QWebSocket::aboutToClose, context_.get(), [this] {
        open_ = false;
        queue_.postAfter(CLOSE_TIME, life_.guard([this] { socket_->abort(); }));
    });
    QObject::connect(from, &QWebSocket::disconnected, context_.get(), [this] { end(); });
    queue_.postAfter(PING_TIME, life_.guard([this] { ping(); }));
}

Channel::~Channel() {
    context_.reset();
    if (socket_)
        socket_->close(QWebSocketProtocol::CloseCodeGoingAway);
}

void Channel::write(std::string_view lines) {
    while (open_ && !lines.empty()) {
        const auto line = lines.substr(0, lines.find('\n'));
        lines.remove_prefix(std::min(lines.size(), line.size() + 1));
        socket_->sendTextMessage(QString::fromUtf8(line.data(), static_cast<qsizetype>(line.size())));
    }
    if (!open_)
        return;
    watchUnread();
    if (!behind_ && socket_->bytesToWrite() >= BEHIND) {
        behind_ = true;
        below_.setHeld(true); // what it asks meanwhile would be answered in vain
    }
}

void Channel::close(QWebSocketProtocol::CloseCode code, const QString& reason) {
    if (std::exchange(open_, false))
        socket_->close(code, reason);
}

void Channel::receive(const QString& message) {
    if (!open_)
        return;
    auto line = message.toStdString();
    // The library counts the characters of a message that comes in fragments.
    if (line.size() > MOST_MESSAGE)
        return close(QWebSocketProtocol::CloseCodeTooMuchData,
                     QStringLiteral("a message has 4096 bytes at most"));
    for (const char end : {'\n', '\r'})
        if (line.ends_with(end))
            line.pop_back();
    delegate_.received(std::move(line));
}

void Channel::heard() {
    unanswered_ = 0;
    below_.spend();
}

void Channel::taken() {
    unread_ = 0;
    if (behind_ && socket_->bytesToWrite() < CAUGHT_UP)
        queue_.post(life_.guard([this] { caughtUp(); })); // this may be inside a write
}

void Channel::caughtUp() {
    if (!std::exchange(behind_, false))
        return;
    below_.setHeld(false);
    announceCaughtUp();
}

void Channel::ping() {
    // While input is held back an answer can't be seen; then it matters that output is taken.
    if (!behind_ && unanswered_++ == 2)
        return socket_->abort();
    socket_->ping();
    queue_.postAfter(PING_TIME, life_.guard([this] { ping(); }));
}

void Channel::watchUnread() {
    if (std::exchange(watchesUnread_, true))
        return;
    queue_.postAfter(UNREAD_STEP, life_.guard([this] {
        watchesUnread_ = false;
        if (socket_->bytesToWrite() == 0) {
            unread_ = 0;
            return;
        }
        if (++unread_ == UNREAD_STEPS)
            return socket_->abort();
        watchUnread();
    }));
}

void Channel::end() {
    open_ = false;
    context_.reset();
    life_ = {};
    queue_.post(life_.guard([this] {
        socket_.reset();
        const auto ended = std::move(delegate_.ended);
        ended();
    }));
}

} // namespace lumbra::web

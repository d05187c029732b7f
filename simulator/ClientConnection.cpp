#include "simulator/ClientConnection.h"

#include <QHostAddress>

#include <algorithm>
#include <limits>
#include <sys/socket.h>

namespace lumbra::sim {

namespace {

/// Commands beyond this size stay in the kernel, and so with the client.
constexpr qint64 READ_BUFFER = 1 << 14;
/// The size of the kernel's send buffer: as small as on a small device, so that a client that does not read
/// is noticed early.
constexpr int SEND_BUFFER = 1 << 16;

std::string nameOf(const QTcpSocket& socket) {
    const QHostAddress address = socket.peerAddress();
    const QString host = address.protocol() == QAbstractSocket::IPv6Protocol
                             ? QLatin1Char('[') + address.toString() + QLatin1Char(']')
                             : address.toString();
    return (host + QLatin1Char(':') + QString::number(socket.peerPort())).toStdString();
}

} // namespace

ClientConnection::ClientConnection(QTcpSocket* socket, const Faults& faults, QObject* parent)
    : QObject(parent), socket_(socket), faults_(faults), name_(nameOf(*socket)) {
    socket_->setParent(this);
    socket_->setReadBufferSize(READ_BUFFER);
    socket_->setSocketOption(QAbstractSocket::SendBufferSizeSocketOption, SEND_BUFFER);
    socket_->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    socket_->setSocketOption(QAbstractSocket::KeepAliveOption, 1);
    clock_.start();
    delayTimer_.setSingleShot(true);
    delayTimer_.setTimerType(Qt::PreciseTimer);
    connect(&delayTimer_, &QTimer::timeout, this, &ClientConnection::releaseDelayed);
    connect(socket_, &QTcpSocket::readyRead, this, &ClientConnection::readCommands);
    // Queued, because both signals are also emitted inside a write, and the slots may write.
    connect(socket_, &QTcpSocket::bytesWritten, this, &ClientConnection::written, Qt::QueuedConnection);
    connect(
        socket_, &QTcpSocket::disconnected, this, [this] { drop(QStringLiteral("closed by the client")); },
        Qt::QueuedConnection);
}

bool ClientConnection::send(const std::string& bytes) {
    if (phase_ != Phase::LIVE || faults_.silence || bytes.empty())
        return false;
    if (faults_.delay.count() > 0) {
        delayed_.push_back({clock_.elapsed() + faults_.delay.count(), bytes});
        delayedBytes_ += static_cast<std::int64_t>(bytes.size());
        if (!delayTimer_.isActive())
            delayTimer_.start(faults_.delay);
    } else {
        outgoing_.append(bytes.data(), static_cast<qsizetype>(bytes.size()));
        pump();
    }
    if (phase_ == Phase::LIVE && backlog() > BACKLOG_LIMIT)
        drop(QStringLiteral("dropped: it does not read what it is sent"));
    return true;
}

std::int64_t ClientConnection::backlog() const {
    return delayedBytes_ + outgoing_.size() + socket_->bytesToWrite();
}

void ClientConnection::readCommands() {
    if (!socket_->isOpen()) // what follows its end is still in the queue
        return;
    if (phase_ == Phase::ENDED)
        socket_->readAll();
    if (phase_ != Phase::LIVE || reading_)
        return;
    reading_ = true;
    char byte = 0;
    while (phase_ == Phase::LIVE && backlog() < BACKLOG_PAUSE && socket_->bytesAvailable() > 0 &&
           socket_->getChar(&byte))
        if (const auto command = reader_.take(byte))
            Q_EMIT commandReceived(*command);
    reading_ = false;
}

void ClientConnection::releaseDelayed() {
    while (!delayed_.empty() && delayed_.front().due <= clock_.elapsed()) {
        const std::string& bytes = delayed_.front().bytes;
        outgoing_.append(bytes.data(), static_cast<qsizetype>(bytes.size()));
        delayedBytes_ -= static_cast<std::int64_t>(bytes.size());
        delayed_.pop_front();
    }
    if (!delayed_.empty())
        delayTimer_.start(
            std::chrono::milliseconds(std::max<qint64>(1, delayed_.front().due - clock_.elapsed())));
    pump();
}

void ClientConnection::pump() {
    if (pumping_ || phase_ != Phase::LIVE || socket_->state() != QAbstractSocket::ConnectedState)
        return;
    pumping_ = true;
    // Each piece is sent only after the kernel has taken the last one, so that it becomes a segment of its
    // own.
    if (!outgoing_.isEmpty() && allowance() > 0 && (faults_.split == 0 || socket_->bytesToWrite() == 0)) {
        const qint64 most = faults_.split > 0 ? faults_.split : outgoing_.size();
        const qint64 count = std::min({most, static_cast<qint64>(outgoing_.size()), qint64(allowance())});
        socket_->write(outgoing_.constData(), count);
        outgoing_.remove(0, count);
        sent_ += count;
        socket_->flush();
    }
    pumping_ = false;
    if (socket_->bytesToWrite() > 0)
        return;
    if (allowance() == 0)
        finish();
    else if (socket_->bytesAvailable() > 0)
        QMetaObject::invokeMethod(this, &ClientConnection::readCommands, Qt::QueuedConnection);
}

void ClientConnection::written() {
    pump();
    if (phase_ == Phase::LIVE && backlog() == 0)
        Q_EMIT drained();
}

std::int64_t ClientConnection::allowance() const {
    std::int64_t allowed = std::numeric_limits<std::int64_t>::max();
    for (const auto& limit : {faults_.reset_after, faults_.end_after})
        if (limit)
            allowed = std::min(allowed, *limit - sent_);
    return allowed;
}

void ClientConnection::finish() {
    const int descriptor = static_cast<int>(socket_->socketDescriptor());
    if (faults_.reset_after && sent_ >= *faults_.reset_after) {
        // Closing a socket that must not linger sends RST instead of FIN.
        const linger now{1, 0};
        ::setsockopt(descriptor, SOL_SOCKET, SO_LINGER, &now, sizeof now);
        drop(QStringLiteral("reset, as told"));
    } else {
        // Only our direction is closed, because closing a socket with unread commands sends RST. From now on
        // commands are read and discarded.
        phase_ = Phase::ENDED;
        ::shutdown(descriptor, SHUT_WR);
        delayTimer_.stop();
        delayed_.clear();
        outgoing_.clear();
        delayedBytes_ = 0;
        readCommands();
    }
}

void ClientConnection::drop(const QString& reason) {
    if (phase_ == Phase::OVER)
        return;
    phase_ = Phase::OVER;
    delayTimer_.stop();
    socket_->abort();
    QMetaObject::invokeMethod(
        this, [this, reason] { Q_EMIT closed(reason); }, Qt::QueuedConnection);
}

} // namespace lumbra::sim

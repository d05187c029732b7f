#include "web/ClientSocket.h"

#include <QMetaObject>

#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <utility>

namespace lumbra::web {

namespace {

constexpr int SEND_BUFFER = 32 << 10; // bytes; the kernel doubles it
constexpr qint64 READ_BUFFER = 8192;
constexpr int UNACKNOWLEDGED_TIME = 30'000; // ms
/// The first byte of a pong's frame. A text begins with no such byte.
constexpr char PONG = '\x8a';

/// One text for both forms of a mapped address.
QString countedAddress(const QHostAddress& address) {
    return QHostAddress(address.toIPv6Address()).toString();
}

} // namespace

ClientSocket::ClientSocket(qintptr descriptor, MainQueue& queue, std::shared_ptr<ClientCounts> counts)
    : queue_(queue), counts_(std::move(counts)) {
    ++counts_->total;
    setReadBufferSize(READ_BUFFER);
    setSocketDescriptor(descriptor);
    setSocketOption(QAbstractSocket::LowDelayOption, 1);
    setSocketOption(QAbstractSocket::SendBufferSizeSocketOption, SEND_BUFFER);
    ::setsockopt(static_cast<int>(descriptor), IPPROTO_TCP, TCP_USER_TIMEOUT, &UNACKNOWLEDGED_TIME,
                 sizeof UNACKNOWLEDGED_TIME);
    address_ = countedAddress(peerAddress());
    ++counts_->fromAddress[address_];
}

ClientSocket::~ClientSocket() {
    --counts_->total;
    if (--counts_->fromAddress[address_] == 0)
        counts_->fromAddress.erase(address_);
}

bool ClientSocket::isAdmitted() const {
    return counts_->total <= MOST &&
           (counts_->fromAddress.at(address_) <= MOST_FROM_ONE || peerAddress().isLoopback());
}

void ClientSocket::spend() {
    if (allowance_ == ALLOWANCE)
        queue_.postAfter(PERIOD, life_.guard([this] {
            const bool wasHeld = isHeld();
            allowance_ = ALLOWANCE;
            if (wasHeld)
                announce();
        }));
    --allowance_;
}

void ClientSocket::setHeld(bool held) {
    if (std::exchange(held_, held) && !held)
        announce();
}

void ClientSocket::announce() {
    if (bytesAvailable() > 0)
        QMetaObject::invokeMethod(this, "readyRead", Qt::QueuedConnection);
}

qint64 ClientSocket::writeData(const char* data, qint64 size) {
    if (size > 0 && *data == PONG)
        spend();
    if (bytesToWrite() + size > MOST_OUTPUT) {
        // Not at once: the caller is in the middle of something.
        QMetaObject::invokeMethod(
            this, [this] { abort(); }, Qt::QueuedConnection);
        return size;
    }
    return QTcpSocket::writeData(data, size);
}

} // namespace lumbra::web

#include "system/SocketConnection.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <unistd.h>
#include <utility>

namespace lumbra {

namespace {

// A unit that vanishes silently is noticed within about half a minute: an idle connection is probed after
// KEEPALIVE_IDLE, and neither a probe nor a command may stay unacknowledged for longer than
// UNACKNOWLEDGED_LIMIT.
constexpr int KEEPALIVE_IDLE = 15;    // s
constexpr int KEEPALIVE_INTERVAL = 5; // s
constexpr int KEEPALIVE_PROBES = 3;
constexpr unsigned UNACKNOWLEDGED_LIMIT = 30000; // ms

// Up to this many unread bytes are discarded before the socket is closed.
constexpr std::size_t DISCARD_LIMIT = std::size_t{1} << 24;

template <typename Value>
void setOption(int socket, int level, int name, Value value) {
    // The options are improvements; the connection works without them.
    static_cast<void>(setsockopt(socket, level, name, &value, sizeof value));
}

} // namespace

SocketConnection::SocketConnection(MainQueue& queue, HostLookups& lookups, std::string host,
                                   std::uint16_t port, std::chrono::milliseconds deadline)
    : PairState(queue), lookups_(lookups), host_(std::move(host)), port_(port), timeToConnect_(deadline) {}

SocketConnection::~SocketConnection() {
    SocketConnection::release();
}

void SocketConnection::start() {
    deadline_ = std::chrono::steady_clock::now() + timeToConnect_;
    attemptTimer_ = std::make_unique<QTimer>();
    QObject::connect(attemptTimer_.get(), &QTimer::timeout, [this] { connectNext(); });
    const auto name = asciiHost(host_);
    if (!isPossibleHost(name)) {
        fail();
        return;
    }
    if (auto found = numericAddresses(name, port_); !found.empty()) {
        connectTo(std::move(found));
        return;
    }
    attemptTimer_->start(timeToConnect_);
    lookup_ =
        lookups_.lookUp(name, port_, [this](const std::vector<SocketAddress>& found) { connectTo(found); });
    if (!lookup_)
        fail(); // no thread to look the name up
}

void SocketConnection::connectTo(std::vector<SocketAddress> addresses) {
    addresses_ = std::move(addresses);
    std::reverse(addresses_.begin(), addresses_.end());
    connectNext();
}

void SocketConnection::connectNext() {
    dropSocket();
    while (!addresses_.empty()) {
        const auto timeLeft =
            std::chrono::ceil<std::chrono::milliseconds>(deadline_ - std::chrono::steady_clock::now());
        if (timeLeft <= std::chrono::milliseconds::zero())
            break;
        // An address that does not answer must not use up the time of the following ones.
        attemptTimer_->start(timeLeft / static_cast<int>(addresses_.size()));
        const auto address = addresses_.back();
        addresses_.pop_back();
        if (startConnect(address))
            return;
    }
    fail();
}

bool SocketConnection::startConnect(const SocketAddress& address) {
    socket_ = ::socket(address.storage.ss_family, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, IPPROTO_TCP);
    if (socket_ == -1)
        return false;
    setOption(socket_, IPPROTO_TCP, TCP_NODELAY, 1);
    setOption(socket_, SOL_SOCKET, SO_KEEPALIVE, 1);
    setOption(socket_, IPPROTO_TCP, TCP_KEEPIDLE, KEEPALIVE_IDLE);
    setOption(socket_, IPPROTO_TCP, TCP_KEEPINTVL, KEEPALIVE_INTERVAL);
    setOption(socket_, IPPROTO_TCP, TCP_KEEPCNT, KEEPALIVE_PROBES);
    setOption(socket_, IPPROTO_TCP, TCP_USER_TIMEOUT, UNACKNOWLEDGED_LIMIT);

    const auto* where = reinterpret_cast<const sockaddr*>(&address.storage);
    if (::connect(socket_, where, address.length) == -1 && errno != EINPROGRESS) {
        dropSocket();
        return false;
    }
    // Used even if the connect is complete already: nothing is reported inside open().
    writeNotifier_ = std::make_unique<QSocketNotifier>(socket_, QSocketNotifier::Write);
    QObject::connect(writeNotifier_.get(), &QSocketNotifier::activated, [this] { writable(); });
    return true;
}

void SocketConnection::writable() {
    writeNotifier_->setEnabled(false);
    if (state() == State::Connecting) {
        connectSettled();
        return;
    }
    spaceFound();
    deliver();
}

void SocketConnection::connectSettled() {
    int error = 0;
    socklen_t length = sizeof error;
    if (getsockopt(socket_, SOL_SOCKET, SO_ERROR, &error, &length) == -1 || error != 0) {
        connectNext();
        return;
    }
    connected();
    attemptTimer_.reset();
    received_ = std::make_unique<std::array<std::uint8_t, RECEIVE_BUFFER_SIZE>>();
    if (!isClosed(Direction::Input)) {
        readNotifier_ = std::make_unique<QSocketNotifier>(socket_, QSocketNotifier::Read);
        QObject::connect(readNotifier_.get(), &QSocketNotifier::activated, [this] { receive(); });
    }
    deliver();
}

void SocketConnection::fail() {
    dropSocket();
    lookup_.reset();
    attemptTimer_->stop();
    over(StreamEvent::ErrorOccurred);
    postDelivery();
}

void SocketConnection::receive() {
    if (receivedBegin_ > 0) {
        std::memmove(received_->data(), received_->data() + receivedBegin_, unread());
        receivedEnd_ = unread();
        receivedBegin_ = 0;
    }
    if (receivedEnd_ == received_->size()) {
        readNotifier_->setEnabled(false); // until somebody reads
        return;
    }
    const auto count = ::recv(socket_, received_->data() + receivedEnd_, received_->size() - receivedEnd_, 0);
    if (count > 0) {
        receivedEnd_ += static_cast<std::size_t>(count);
        bytesArrived();
        deliver();
    } else if (count == 0) {
        // The failed write has consumed the error of the socket.
        finish(writeFailed_ ? StreamEvent::ErrorOccurred : StreamEvent::EndEncountered);
    } else if (errno != EAGAIN || writeFailed_) {
        finish(StreamEvent::ErrorOccurred);
    }
}

void SocketConnection::finish(StreamEvent lastEvent) {
    over(lastEvent);
    readNotifier_.reset();
    writeNotifier_->setEnabled(false);
    deliver();
}

void SocketConnection::settleWriteError() {
    if (state() != State::Connected || lastEvent())
        return;
    if (isClosed(Direction::Input))
        finish(StreamEvent::ErrorOccurred);
    else
        receive(); // what arrived before the error comes first
}

std::size_t SocketConnection::take(std::span<std::uint8_t> buffer) {
    const auto count = std::min(buffer.size(), unread());
    std::copy_n(received_->data() + receivedBegin_, count, buffer.data());
    receivedBegin_ += count;
    if (readNotifier_ && count > 0)
        readNotifier_->setEnabled(true);
    return count;
}

std::ptrdiff_t SocketConnection::write(std::span<const std::uint8_t> bytes) {
    if (isClosed(Direction::Output) || state() == State::Failed)
        return -1;
    if (state() != State::Connected || bytes.empty())
        return 0;
    auto count = ::send(socket_, bytes.data(), bytes.size(), MSG_NOSIGNAL);
    if (count == -1 && errno != EAGAIN) {
        if (!std::exchange(writeFailed_, true) && !lastEvent())
            queue().post([weak = weak_from_this()] {
                if (const auto self = weak.lock())
                    static_cast<SocketConnection&>(*self).settleWriteError();
            });
        return -1;
    }
    count = std::max<ssize_t>(count, 0);
    if (static_cast<std::size_t>(count) < bytes.size() && !lastEvent())
        writeNotifier_->setEnabled(true);
    return count;
}

void SocketConnection::inputClosed() {
    readNotifier_.reset();
    receivedBegin_ = receivedEnd_ = 0;
}

void SocketConnection::dropSocket() {
    readNotifier_.reset();
    writeNotifier_.reset();
    if (socket_ != -1)
        ::close(std::exchange(socket_, -1));
}

void SocketConnection::release() {
    // Closing a socket with unread bytes resets the connection, and the unit might lose the last command.
    if (state() == State::Connected)
        static_cast<void>(::recv(socket_, nullptr, DISCARD_LIMIT, MSG_DONTWAIT | MSG_TRUNC));
    dropSocket();
    lookup_.reset();
    attemptTimer_.reset();
}

} // namespace lumbra

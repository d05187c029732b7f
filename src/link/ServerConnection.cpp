#include "link/ServerConnection.h"

namespace lumbra {

ServerConnection::ServerConnection(MainQueue& queue, StreamFactory& streams, const Reachability& reachability)
    : queue_(queue), streams_(streams), reachability_(reachability) {}

void ServerConnection::setIpAddress(std::string address) {
    if (ip_address_ == address)
        return;
    ip_address_ = std::move(address);
    linkChanged_.emit();
}

ServerConnection::OpenAttempt ServerConnection::nextOpenAttempt() {
    return {++createdAttempts_, ip_address_};
}

bool ServerConnection::open(const OpenAttempt& attempt) {
    if (!connectedToNetwork())
        return false;
    // std::function needs a copyable capture, hence the shared pair.
    auto pair = std::make_shared<StreamPair>(streams_.createPair(attempt.address, telnet_port));
    if (!pair->input || !pair->output)
        return false;
    queue_.post([weak = weak_from_this(), number = attempt.number, pair = std::move(pair)] {
        if (const auto connection = weak.lock())
            connection->adopt(number, std::move(*pair));
    });
    return true;
}

void ServerConnection::adopt(std::uint64_t attempt, StreamPair pair) {
    if (attempt <= settledAttempts_)
        return;
    settledAttempts_ = attempt;
    iStream_ = std::move(pair.input);
    oStream_ = std::move(pair.output);
    // The new pair has not reported anything yet.
    isOpen_ = outputStreamIsOpen_ = inputStreamIsOpen_ = sendFailed_ = false;
    for (Stream* stream : {static_cast<Stream*>(iStream_.get()), static_cast<Stream*>(oStream_.get())}) {
        stream->setDelegate(this);
        stream->open();
        stream->scheduleOnMainQueue();
    }
    announceLinkState();
}

LinkState ServerConnection::linkState() const {
    if (isOpen_)
        return LinkState::Open;
    return iStream_ || oStream_ ? LinkState::Opening : LinkState::Closed;
}

std::int64_t ServerConnection::sendData(std::span<const std::uint8_t> bytes) {
    if (!outputStreamIsOpen_)
        return 0;
    const auto written = oStream_->write(bytes);
    sendFailed_ |= written < 0;
    return written;
}

void ServerConnection::closeConnection() {
    settledAttempts_ = createdAttempts_;
    const auto release = [](auto& stream, bool& isOpen) {
        if (!stream)
            return;
        stream->removeFromMainQueue();
        stream->close();
        stream->setDelegate(nullptr);
        stream.reset();
        isOpen = false;
    };
    release(oStream_, outputStreamIsOpen_);
    release(iStream_, inputStreamIsOpen_);
    isOpen_ = false;
    announceLinkState();
}

void ServerConnection::handleEvent(Stream& stream, StreamEvent event) {
    // The delegate's work inside an event may drop the last other reference to the connection.
    const auto self = shared_from_this();
    const bool isOutput = &stream == oStream_.get();
    if (!isOutput && &stream != iStream_.get())
        return;
    switch (event) {
    case StreamEvent::OpenCompleted:
        openCompleted(isOutput ? outputStreamIsOpen_ : inputStreamIsOpen_);
        break;
    case StreamEvent::HasBytesAvailable:
        if (!isOutput)
            readAvailable();
        break;
    case StreamEvent::ErrorOccurred:
        fail();
        break;
    case StreamEvent::EndEncountered:
        closeConnection();
        break;
    case StreamEvent::HasSpaceAvailable:
        break;
    }
}

void ServerConnection::openCompleted(bool& streamIsOpen) {
    streamIsOpen = true;
    if (!inputStreamIsOpen_ || !outputStreamIsOpen_)
        return;
    isOpen_ = true;
    postToDelegate(&ServerConnectionDelegate::serverConnected);
    announceLinkState();
}

void ServerConnection::fail() {
    closeConnection();
    postToDelegate(&ServerConnectionDelegate::displayConnectionError);
}

void ServerConnection::readAvailable() {
    while (iStream_ && iStream_->hasBytesAvailable()) {
        ReceiveBuffer buffer{};
        const auto count = iStream_->read(buffer);
        if (count <= 0)
            closeConnection();
        if (count < 0)
            return;
        // The delegate may be replaced while it handles the bytes; it stays alive until it returns.
        if (const auto receiver = delegate_)
            receiver->dataReceived(buffer, static_cast<std::size_t>(count));
    }
}

void ServerConnection::postToDelegate(void (ServerConnectionDelegate::*operation)()) {
    queue_.post([weak = weak_from_this(), operation] {
        const auto connection = weak.lock();
        if (!connection)
            return;
        if (const auto receiver = connection->delegate_)
            (receiver.get()->*operation)();
    });
}

void ServerConnection::announceLinkState() {
    if (const auto state = linkState(); state != announced_) {
        announced_ = state;
        linkChanged_.emit();
    }
}

} // namespace lumbra

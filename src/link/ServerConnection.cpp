#include "link/ServerConnection.h"

#include <utility>

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
    return {weak_from_this(), ++createdAttempts_, ip_address_, queue_, streams_, reachability_};
}

bool ServerConnection::open(const OpenAttempt& attempt) {
    if (!attempt.connectedToNetwork())
        return false;
    // std::function needs a copyable capture, hence the shared pair.
    auto pair = std::make_shared<StreamPair>(attempt.streams.createPair(attempt.address, telnet_port));
    if (!pair->input)
        return false;
    attempt.queue.post([weak = attempt.connection, number = attempt.number, pair = std::move(pair)] {
        if (const auto connection = weak.lock())
            connection->adopt(number, std::move(*pair));
    });
    return true;
}

void ServerConnection::adopt(std::uint64_t attempt, StreamPair pair) {
    if (attempt <= settledAttempts_)
        return;
    settledAttempts_ = attempt;
    pair_ = {std::move(pair)};
    pair_.open(*this);
    announceLinkState();
}

LinkState ServerConnection::linkState() const {
    if (isConnected())
        return LinkState::Open;
    return pair_.input ? LinkState::Opening : LinkState::Closed;
}

std::int64_t ServerConnection::sendData(std::span<const std::uint8_t> bytes) {
    if (!pair_.outputIsOpen)
        return 0;
    const auto written = pair_.output->write(bytes);
    pair_.sendFailed |= written < 0;
    return written;
}

void ServerConnection::closeConnection() {
    settledAttempts_ = createdAttempts_;
    if (const auto pair = std::exchange(pair_, {}); pair.input)
        pair.close();
    announceLinkState();
}

void ServerConnection::handleEvent(Stream& stream, StreamEvent event) {
    // The delegate's work inside an event may drop the last other reference to the connection.
    const auto self = shared_from_this();
    const bool isOutput = &stream == pair_.output.get();
    if (!isOutput && &stream != pair_.input.get())
        return;
    switch (event) {
    case StreamEvent::OpenCompleted:
        openCompleted(isOutput ? pair_.outputIsOpen : pair_.inputIsOpen);
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
    if (!isConnected())
        return;
    postToDelegate(&ServerConnectionDelegate::serverConnected);
    announceLinkState();
}

void ServerConnection::fail() {
    closeConnection();
    postToDelegate(&ServerConnectionDelegate::displayConnectionError);
}

void ServerConnection::readAvailable() {
    while (pair_.input && pair_.input->hasBytesAvailable()) {
        ReceiveBuffer buffer{};
        const auto count = pair_.input->read(buffer);
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

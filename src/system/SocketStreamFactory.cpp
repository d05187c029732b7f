#include "system/SocketStreamFactory.h"

#include "system/SocketConnection.h"

#include <memory>
#include <span>
#include <utility>

namespace lumbra {

namespace {

/// The common part of both directions.
template <typename Interface, SocketConnection::Direction DIRECTION>
class SocketStream : public Interface {
public:
    explicit SocketStream(std::shared_ptr<SocketConnection> connection) : connection_(std::move(connection)) {
        connection_->attach(DIRECTION, *this);
    }
    ~SocketStream() override { connection_->close(DIRECTION); }

    void setDelegate(StreamDelegate* delegate) override { connection_->setDelegate(DIRECTION, delegate); }
    void open() override { connection_->open(); }
    void scheduleOnMainQueue() override { connection_->setScheduled(DIRECTION, true); }
    void removeFromMainQueue() override { connection_->setScheduled(DIRECTION, false); }
    void close() override { connection_->close(DIRECTION); }

protected:
    const std::shared_ptr<SocketConnection> connection_;
};

class SocketInputStream final : public SocketStream<InputStream, SocketConnection::Direction::Input> {
public:
    using SocketStream::SocketStream;

    bool hasBytesAvailable() const override { return connection_->hasBytesAvailable(); }
    std::ptrdiff_t read(std::span<std::uint8_t> buffer) override { return connection_->read(buffer); }
};

class SocketOutputStream final : public SocketStream<OutputStream, SocketConnection::Direction::Output> {
public:
    using SocketStream::SocketStream;

    std::ptrdiff_t write(std::span<const std::uint8_t> bytes) override { return connection_->write(bytes); }
};

} // namespace

SocketStreamFactory::SocketStreamFactory(MainQueue& queue, std::chrono::milliseconds deadline,
                                         Resolver resolver)
    : queue_(queue), deadline_(deadline), lookups_(queue, std::move(resolver)) {}

StreamPair SocketStreamFactory::createPair(const std::string& host, std::uint16_t port) {
    const auto connection = std::make_shared<SocketConnection>(queue_, lookups_, host, port, deadline_);
    return {std::make_unique<SocketInputStream>(connection),
            std::make_unique<SocketOutputStream>(connection)};
}

} // namespace lumbra

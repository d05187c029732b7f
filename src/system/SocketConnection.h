#pragma once

#include "platform/MainQueue.h"
#include "platform/Streams.h"
#include "system/HostLookups.h"
#include "system/SocketAddress.h"

#include <QSocketNotifier>
#include <QTimer>

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace lumbra {

/// The state that the two streams of a pair share: the socket, its connect, and the events of both
/// directions. Each stream owns a reference. The socket is released as soon as both directions are closed.
///
/// It may be created on any thread and touches no event loop before `open`. From then on it belongs to the
/// main thread.
class SocketConnection final : public std::enable_shared_from_this<SocketConnection> {
public:
    enum class Direction : std::uint8_t { Input, Output };

    /// The most bytes that one turn of the main loop reads.
    static constexpr std::size_t RECEIVE_BUFFER_SIZE = 65536;

    /// `queue` and `lookups` outlive the connection. `deadline` is the time for the look-up and all connects
    /// together.
    SocketConnection(MainQueue& queue, HostLookups& lookups, std::string host, std::uint16_t port,
                     std::chrono::milliseconds deadline);
    ~SocketConnection();
    SocketConnection(const SocketConnection&) = delete;
    SocketConnection& operator=(const SocketConnection&) = delete;

    /// Sets the stream that represents `direction` in events. Called once, before anything else.
    void attach(Direction direction, Stream& stream) { half(direction).stream = &stream; }
    void setDelegate(Direction direction, StreamDelegate* delegate);
    void setScheduled(Direction direction, bool scheduled);
    void open();
    void close(Direction direction);

    bool hasBytesAvailable() const { return unread() > 0; }
    std::ptrdiff_t read(std::span<std::uint8_t> buffer);
    std::ptrdiff_t write(std::span<const std::uint8_t> bytes);

private:
    enum class State : std::uint8_t { Unopened, Connecting, Connected, Failed, Released };

    struct Half {
        Stream* stream = nullptr;
        StreamDelegate* delegate = nullptr;
        bool scheduled = false;
        bool closed = false;
        bool openReported = false;
        bool isListening() const { return !closed && scheduled && delegate; }
    };

    Half& half(Direction direction) { return direction == Direction::Input ? input_ : output_; }
    std::size_t unread() const { return receivedEnd_ - receivedBegin_; }
    bool mustOffer() const { return offerPending_ && unread() > 0; }

    void connectTo(std::vector<SocketAddress> addresses);
    void connectNext();
    bool startConnect(const SocketAddress& address);
    void writable();
    void connectSettled();
    void fail();

    void receive();
    void finish(StreamEvent lastEvent);
    void settleWriteError();

    void postDelivery();
    void deliver();
    void deliverOpen(Half& half);
    void deliverBytes();
    void deliverSpace();
    void deliverLastEvent();
    void report(const Half& half, StreamEvent event);

    void dropSocket();
    void release();

    MainQueue& queue_;
    HostLookups& lookups_;
    const std::string host_;
    const std::uint16_t port_;
    const std::chrono::milliseconds timeToConnect_;

    State state_ = State::Unopened;
    Half input_;
    Half output_;

    HostLookups::Request lookup_;
    std::vector<SocketAddress> addresses_; ///< not tried yet, the next one last
    std::chrono::steady_clock::time_point deadline_;
    std::unique_ptr<QTimer> attemptTimer_;

    int socket_ = -1;
    std::unique_ptr<QSocketNotifier> readNotifier_;
    std::unique_ptr<QSocketNotifier> writeNotifier_;

    std::unique_ptr<std::array<std::uint8_t, RECEIVE_BUFFER_SIZE>> received_;
    std::size_t receivedBegin_ = 0;
    std::size_t receivedEnd_ = 0;

    bool offerPending_ = false; ///< unread bytes, if any, must be reported to the delegate
    bool spacePending_ = false;
    bool writeFailed_ = false;
    std::optional<StreamEvent> lastEvent_; ///< the end or error; nothing follows it
    bool lastEventReported_ = false;
    bool deliveryPosted_ = false;
    bool delivering_ = false;
};

} // namespace lumbra

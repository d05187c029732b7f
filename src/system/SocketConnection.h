#pragma once

#include "platform/MainQueue.h"
#include "platform/PairState.h"
#include "system/HostLookups.h"
#include "system/SocketAddress.h"

#include <QSocketNotifier>
#include <QTimer>

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace lumbra {

/// A pair of streams over one socket: its look-up, its connect, and the bytes of both directions. The socket
/// is released as soon as both directions are closed.
///
/// It may be created on any thread and touches no event loop before `open`. From then on it belongs to the
/// main thread.
class SocketConnection final : public PairState {
public:
    /// The most bytes that one turn of the main loop reads.
    static constexpr std::size_t RECEIVE_BUFFER_SIZE = 65536;

    /// `queue` and `lookups` outlive the connection. `deadline` is the time for the look-up and all connects
    /// together.
    SocketConnection(MainQueue& queue, HostLookups& lookups, std::string host, std::uint16_t port,
                     std::chrono::milliseconds deadline);
    ~SocketConnection() override;

    std::ptrdiff_t write(std::span<const std::uint8_t> bytes) override;

private:
    void start() override;
    std::size_t unread() const override { return receivedEnd_ - receivedBegin_; }
    std::size_t take(std::span<std::uint8_t> buffer) override;
    void inputClosed() override;
    void release() override;

    void connectTo(std::vector<SocketAddress> addresses);
    void connectNext();
    bool startConnect(const SocketAddress& address);
    void writable();
    void connectSettled();
    void fail();

    void receive();
    void finish(StreamEvent lastEvent);
    void settleWriteError();

    void dropSocket();

    HostLookups& lookups_;
    const std::string host_;
    const std::uint16_t port_;
    const std::chrono::milliseconds timeToConnect_;

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

    bool writeFailed_ = false;
};

} // namespace lumbra

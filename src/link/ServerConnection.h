#pragma once

#include "platform/MainQueue.h"
#include "platform/Reachability.h"
#include "platform/Streams.h"
#include "toolkit/Signal.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>

namespace lumbra {

/// The buffer of one read. Only its first `count` bytes are valid; the others are zero.
using ReceiveBuffer = std::array<std::uint8_t, 256>;

/// The connection's delegate: the current screen. Main thread.
class ServerConnectionDelegate {
public:
    /// A stream has reported an error. The connection is closed already.
    virtual void displayConnectionError() = 0;
    /// `count` bytes have arrived, 0 to 256.
    virtual void dataReceived(const ReceiveBuffer& buffer, std::size_t count) = 0;
    /// Both streams have completed their open.
    virtual void serverConnected() = 0;

protected:
    ~ServerConnectionDelegate() = default;
};

/// The state of the link: no streams; streams that are not both open; both streams open.
enum class LinkState : std::uint8_t { Closed, Opening, Open };

/// Its name in the console and in tests.
constexpr std::string_view nameOf(LinkState link) {
    constexpr std::string_view NAMES[] = {"closed", "opening", "open"};
    return NAMES[static_cast<std::size_t>(link)];
}

/// The application's only link to the unit: a pair of TCP streams to port 23 of `ip_address`, driven by the
/// main loop. It does not interpret the bytes, never retries and has no timer.
///
/// It belongs to the main thread. A worker runs `open` on an attempt that the main thread has created. An
/// attempt has nothing of the connection, which may end meanwhile: its stream pair is posted to the main queue,
/// and used or dropped only there.
class ServerConnection final : public StreamDelegate, public std::enable_shared_from_this<ServerConnection> {
public:
    /// The TCP port of every unit.
    static constexpr std::uint16_t telnet_port = 23;
    static constexpr const char* DEFAULT_IP_ADDRESS = "192.168.1.50";

    /// All three outlive the connection and its attempts.
    ServerConnection(MainQueue& queue, StreamFactory& streams, const Reachability& reachability);

    /// The unit number that every command carries, 1 to 4.
    std::int64_t unit = 1;
    /// Whether screens send their state queries.
    bool polling = true;
    /// The serial-port flag that is announced to the unit after connecting.
    bool serial = false;
    /// The unit's address as set, not validated.
    const std::string& ip_address() const { return ip_address_; }
    void setIpAddress(std::string address);

    /// The most recently shown screen. It is kept alive.
    const std::shared_ptr<ServerConnectionDelegate>& delegate() const { return delegate_; }
    void setDelegate(std::shared_ptr<ServerConnectionDelegate> delegate) { delegate_ = std::move(delegate); }

    /// One run of `open`, and all that it needs.
    struct OpenAttempt {
        std::weak_ptr<ServerConnection> connection; ///< locked on the main thread only
        std::uint64_t number;                       ///< in sequence
        std::string address;                        ///< at the time when the attempt was created
        MainQueue& queue;
        StreamFactory& streams;
        const Reachability& reachability;

        /// True when the device has a usable network, whatever the address. Any thread.
        bool connectedToNetwork() const { return reachability.isReachable(); }
    };
    /// Creates the next attempt. Main thread.
    OpenAttempt nextOpenAttempt();
    /// Creates the stream pair and posts it to the main thread, which opens it. The pair is dropped if the
    /// connection has been closed or has ended since the attempt was created, or if a later attempt's pair has
    /// arrived. Returns false and does nothing if there is no network or the pair cannot be created. Any thread.
    static bool open(const OpenAttempt& attempt);

    /// True once both streams have completed their open.
    bool isConnected() const { return pair_.inputIsOpen && pair_.outputIsOpen; }
    /// True once a write to the present pair has failed: what the pair reports next closes it.
    bool hasFailedToSend() const { return pair_.sendFailed; }
    LinkState linkState() const;

    /// Writes `bytes` with one call. Returns the number of bytes that the network took, 0 while the output
    /// stream is not open, or -1 on an error. The rest of a short write is never sent.
    std::int64_t sendData(std::span<const std::uint8_t> bytes);

    /// Closes both streams and cancels every attempt created so far. The delegate is not told.
    void closeConnection();

    void handleEvent(Stream& stream, StreamEvent event) override;

    /// Calls `observer` whenever the link's state or the address has changed.
    Subscription onLinkChange(std::function<void()> observer) {
        return linkChanged_.subscribe(std::move(observer));
    }

private:
    struct Pair : StreamPair {
        bool inputIsOpen = false;
        bool outputIsOpen = false;
        bool sendFailed = false;
    };

    void adopt(std::uint64_t attempt, StreamPair pair);
    void openCompleted(bool& streamIsOpen);
    void fail();
    void readAvailable();
    void postToDelegate(void (ServerConnectionDelegate::*operation)());
    void announceLinkState();

    MainQueue& queue_;
    StreamFactory& streams_;
    const Reachability& reachability_;

    Pair pair_; ///< no streams while the link is closed
    std::shared_ptr<ServerConnectionDelegate> delegate_;
    std::string ip_address_ = DEFAULT_IP_ADDRESS;

    std::uint64_t createdAttempts_ = 0;
    std::uint64_t settledAttempts_ = 0; ///< attempts up to this one are adopted, outdated or cancelled
    LinkState announced_ = LinkState::Closed;
    Signal<> linkChanged_;
};

} // namespace lumbra

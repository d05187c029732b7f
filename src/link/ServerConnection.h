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
#include <utility>

namespace lumbra {

/// The bytes of one read; only the first `count` that come with it are valid, the others are zero.
using ReceiveBuffer = std::array<std::uint8_t, 256>;

/// What the connection tells the screen on show. Main thread.
class ServerConnectionDelegate {
public:
    /// A stream reported an error; the connection is closed already.
    virtual void displayConnectionError() = 0;
    /// `count` (0 to 256) bytes arrived.
    virtual void dataReceived(const ReceiveBuffer& buffer, std::size_t count) = 0;
    /// Both streams have completed their open.
    virtual void serverConnected() = 0;

protected:
    ~ServerConnectionDelegate() = default;
};

/// What a person can be told about the link: no streams, streams that are not both open, both open.
enum class LinkState : std::uint8_t { Closed, Opening, Open };

/// The application's one link to the unit: a pair of TCP streams to `ip_address` on port 23, driven by the
/// main loop. It knows nothing of what the bytes mean, never retries and has no timer.
///
/// Threads: the main thread, but for `open`, which a worker runs on an attempt that the main thread has
/// drawn. `open` touches nothing of the connection that the main thread writes; it hands its pair over
/// through the main queue, and the pair comes alive only there.
class ServerConnection final : public StreamDelegate, public std::enable_shared_from_this<ServerConnection> {
public:
    /// The TCP port of every unit.
    static constexpr std::uint16_t telnet_port = 23;
    static constexpr const char* DEFAULT_IP_ADDRESS = "192.168.1.50";

    /// All three outlive the connection.
    ServerConnection(MainQueue& queue, StreamFactory& streams, const Reachability& reachability);

    /// The unit number that every command carries, 1 to 4.
    std::int64_t unit = 1;
    /// Whether screens send their state query.
    bool polling = true;
    /// The flag that is announced to the unit after connecting.
    bool serial = false;
    /// The unit's address as set, not validated.
    const std::string& ip_address() const { return ip_address_; }
    void setIpAddress(std::string address);

    /// The screen most recently shown; kept alive.
    const std::shared_ptr<ServerConnectionDelegate>& delegate() const { return delegate_; }
    void setDelegate(std::shared_ptr<ServerConnectionDelegate> delegate) { delegate_ = std::move(delegate); }

    /// True when the device has a usable network, whatever the address. Any thread.
    bool connectedToNetwork() const { return reachability_.isReachable(); }

    /// One run of `open`: the address as it was when the attempt was drawn, and the attempt's place among
    /// all.
    struct OpenAttempt {
        std::uint64_t number;
        std::string address;
    };
    /// Draws the next attempt. Main thread.
    OpenAttempt nextOpenAttempt();
    /// Creates the stream pair and hands it to the main thread, which starts it there unless the connection
    /// has been closed or a later attempt's pair has taken its place since the attempt was drawn. False, and
    /// nothing changes, without a network or where the pair can't be created. Any thread.
    bool open(const OpenAttempt& attempt);

    /// Both streams have reported that their open completed.
    bool isConnected() const { return isOpen_; }
    LinkState linkState() const;

    /// Writes `bytes` with one call: the bytes that the network took, 0 while the output stream is not open,
    /// -1 on an error. The rest of a short write is never sent.
    std::int64_t sendData(std::span<const std::uint8_t> bytes);

    /// Drops both streams and calls off every attempt drawn so far. The delegate is not told.
    void closeConnection();

    void handleEvent(Stream& stream, StreamEvent event) override;

    /// Calls `observer` whenever the link's state or the address has changed.
    Subscription onLinkChange(std::function<void()> observer) {
        return linkChanged_.subscribe(std::move(observer));
    }

private:
    void adopt(std::uint64_t attempt, StreamPair pair);
    void openCompleted(bool& streamIsOpen);
    void fail();
    void readAvailable();
    void postToDelegate(void (ServerConnectionDelegate::*operation)());
    void announceLinkState();

    MainQueue& queue_;
    StreamFactory& streams_;
    const Reachability& reachability_;

    std::unique_ptr<InputStream> iStream_;
    std::unique_ptr<OutputStream> oStream_;
    std::shared_ptr<ServerConnectionDelegate> delegate_;
    std::string ip_address_ = DEFAULT_IP_ADDRESS;
    bool isOpen_ = false;
    bool outputStreamIsOpen_ = false;
    bool inputStreamIsOpen_ = false;

    std::uint64_t drawnAttempts_ = 0;
    std::uint64_t settledAttempts_ = 0; ///< attempts up to this one are adopted, overtaken or called off
    LinkState announced_ = LinkState::Closed;
    Signal<> linkChanged_;
};

} // namespace lumbra

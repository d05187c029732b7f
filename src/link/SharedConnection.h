#pragma once

#include "link/CommandWriter.h"
#include "link/StateQueries.h"
#include "link/Tap.h"
#include "platform/Lifetime.h"
#include "platform/MainQueue.h"
#include "platform/Streams.h"
#include "protocol/ReportBuffer.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace lumbra {

/// The one connection to one place that all of its taps share. SharedLink describes its rules. Main thread only.
class SharedConnection final : public std::enable_shared_from_this<SharedConnection>, private StreamDelegate {
public:
    /// How long the connection stays open after the last tap has left.
    static constexpr std::chrono::seconds LINGER{10};
    /// The shortest time between two connects.
    static constexpr std::chrono::seconds CONNECT_INTERVAL{2};
    /// A tap that is not open by then fails.
    static constexpr std::chrono::seconds CONNECT_DEADLINE{10};
    /// About how many bytes one turn of the main loop reads.
    static constexpr std::size_t TURN_LIMIT = 16384;

    /// `queue` and `network` outlive the connection.
    SharedConnection(MainQueue& queue, StreamFactory& network, std::string host, std::uint16_t port)
        : queue_(queue), network_(network), host_(std::move(host)), port_(port) {}
    SharedConnection(const SharedConnection&) = delete;
    SharedConnection& operator=(const SharedConnection&) = delete;
    /// Ends the taps that are left, in a later turn.
    ~SharedConnection();

    /// A tap has been opened. It learns in a later turn whether the connection is open.
    void enter(std::shared_ptr<Tap> tap);
    /// The tap is closed.
    void leave(const Tap& tap);
    /// Writes one whole command of `tap`, which is open. Returns what Tap::write returns.
    std::ptrdiff_t send(const Tap& tap, std::span<const std::uint8_t> command);

    /// True while there is nothing to keep: no taps, no streams, and a connect may begin.
    bool isIdle() const { return taps_.empty() && !session_ && !resting_; }

private:
    /// All that ends with one pair of streams of the network.
    struct Session {
        Session(SharedConnection& connection, StreamPair streams);
        Session(const Session&) = delete;
        Session& operator=(const Session&) = delete;
        ~Session();

        StreamPair pair;
        bool inputIsOpen = false;
        bool outputIsOpen = false;
        CommandWriter writer;
        std::set<std::int64_t> announced; ///< the units that know the serial flag
        ReportBuffer reports;
        std::uint64_t lastReport = 0; ///< how many had begun when the last one was complete
        bool lastIsEnd = false;       ///< the last one ended an answer
        StateQueries queries;
        bool receivePosted = false;
        Lifetime lifetime;

        bool isOpen() const { return inputIsOpen && outputIsOpen; }
    };

    void connect();
    void opened();
    void handleEvent(Stream& stream, StreamEvent event) override;
    std::ptrdiff_t readOnce();
    void receive();
    void receiveReport(std::string_view text);
    void hasSpace();
    void end(StreamEvent lastEvent);

    MainQueue& queue_;
    StreamFactory& network_;
    const std::string host_;
    const std::uint16_t port_;

    std::vector<std::shared_ptr<Tap>> taps_; ///< open, or about to be
    std::unique_ptr<Session> session_;
    std::string frame_;    ///< of the report in hand
    bool resting_ = false; ///< the last connect began less than CONNECT_INTERVAL ago
    Lifetime linger_;
    Lifetime lifetime_;
};

} // namespace lumbra

#pragma once

#include "platform/MainQueue.h"
#include "platform/Streams.h"

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <utility>

namespace lumbra {

class SharedConnection;

/// Gives many applications one connection to the unit. Each has a pair of streams that behaves as a connection
/// of its own, but for this:
///
/// - The first pair that is opened connects. The connection is closed 10 s after the last pair has been. One
///   connect runs at a time, and one in 2 s: a pair that is opened earlier stays opening until its turn, within
///   its 10 s.
/// - Each pair gets the reports that begin after it has opened. A report comes whole, cut to what ReportBuffer
///   keeps of it; nothing outside of the parentheses comes. The end of an answer comes only to those whose
///   query it answers (StateQueries).
/// - Each `write` is one command, which is taken whole or not at all. A serial announcement after the first one
///   of the connection, and a query that is under way already, are taken and not sent. All pairs announce the
///   same flag, as the settings are the same for all; one that differs is not sent, either.
/// - If the connection fails or ends, so does each pair, after the reports that arrived before.
/// - A pair whose bytes nobody reads ends when Tap::UNREAD_LIMIT of them wait. It delays no other.
///
/// Pairs to another host or port, as after a change of the settings, share a connection of their own; the old
/// one is closed when its last pair has left.
class SharedLink final : public StreamFactory {
public:
    /// Both outlive the link and its pairs; `network` is used on the main thread. Pairs that outlive the link
    /// end in a later turn.
    SharedLink(MainQueue& queue, StreamFactory& network);
    ~SharedLink() override;
    SharedLink(const SharedLink&) = delete;
    SharedLink& operator=(const SharedLink&) = delete;

    StreamPair createPair(const std::string& host, std::uint16_t port) override;

private:
    using Connections = std::map<std::pair<std::string, std::uint16_t>, std::shared_ptr<SharedConnection>>;

    MainQueue& queue_;
    StreamFactory& network_;
    const std::shared_ptr<Connections> connections_; ///< main thread, which alone holds it beside this link
};

} // namespace lumbra

#pragma once

#include "simulator/Playback.h"
#include "simulator/TcpServer.h"
#include "system/Trace.h"

#include <cstddef>
#include <map>
#include <vector>

namespace lumbra::sim {

/// Plays the unit's side of a trace: the first client gets the first link that opened in the trace, the
/// second the second, and so on. Attempts that failed can't be played by a unit that listens, and are left
/// out. Runs on the event loop of the thread that owns it.
class ReplayServer : public TcpServer {
    Q_OBJECT

public:
    /// `tell` receives a line of printable ASCII for whatever happens, with the number of the connection
    /// that it is about.
    ReplayServer(const Trace& trace, Playback::Pace pace, bool verbose, Playback::Tell tell);

    /// The links of the trace that can be played.
    std::size_t linkCount() const { return links_.size(); }

private:
    struct Link {
        std::chrono::microseconds opened;
        std::vector<TraceEntry> entries; ///< behind the opening
    };

    void welcome(QTcpSocket* socket) override;
    void acceptFailed(const std::string& problem) override;

    std::vector<Link> links_;
    const Playback::Pace pace_;
    const bool verbose_;
    const Playback::Tell tell_;
    std::size_t clients_ = 0;
    bool clientsWait_ = false; ///< accepting fails
};

} // namespace lumbra::sim

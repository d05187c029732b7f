#pragma once

#include "simulator/Playback.h"
#include "system/Trace.h"

#include <QHostAddress>
#include <QObject>
#include <QTcpServer>

#include <cstddef>
#include <map>
#include <vector>

namespace lumbra::sim {

/// Plays the unit's side of a trace: the first client gets the first link that opened in the trace, the
/// second the second, and so on. Attempts that failed can't be played by a unit that listens, and are left
/// out. Runs on the event loop of the thread that owns it.
class ReplayServer : public QObject {
    Q_OBJECT

public:
    /// `tell` receives a line of printable ASCII for whatever happens, with the number of the connection.
    ReplayServer(const Trace& trace, Playback::Pace pace, bool verbose, Playback::Tell tell);

    /// Starts to listen; port 0 lets the kernel choose. False on failure; `errorString` then says why.
    bool listen(const QHostAddress& address, quint16 port) { return server_.listen(address, port); }
    quint16 port() const { return server_.serverPort(); }
    QHostAddress address() const { return server_.serverAddress(); }
    QString errorString() const { return server_.errorString(); }
    /// The links of the trace that can be played.
    std::size_t linkCount() const { return links_.size(); }

private:
    struct Link {
        std::chrono::microseconds opened;
        std::vector<TraceEntry> entries; ///< behind the opening
    };

    void accept();

    std::vector<Link> links_;
    const Playback::Pace pace_;
    const bool verbose_;
    const Playback::Tell tell_;
    QTcpServer server_;
    std::size_t clients_ = 0;
};

} // namespace lumbra::sim

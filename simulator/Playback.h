#pragma once

#include "system/Trace.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTcpSocket>
#include <QTimer>

#include <chrono>
#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace lumbra::sim {

/// Plays the unit's side of one link of a trace to a remote. Where the remote sent something in the trace, it
/// waits until it does so again; from there the recorded pauses count. A remote that sends something else is
/// reported, and the playback goes on. Belongs to the thread of its event loop.
class Playback : public QObject {
    Q_OBJECT

public:
    enum class Pace { Recorded, Fast };
    /// Receives a line of printable ASCII.
    using Tell = std::function<void(const std::string& line)>;

    /// Takes ownership of `socket`. `entries` are those behind the opening of the link, at `opened`; `text` of
    /// what was sent is the whole write. `verbose` tells every command and report, too.
    Playback(QTcpSocket* socket, std::vector<TraceEntry> entries, std::chrono::microseconds opened, Pace pace,
             bool verbose, Tell tell, QObject* parent);

Q_SIGNALS:
    /// The connection is over. Emitted once, from the event loop.
    void closed();

private:
    /// Once the playback has waited this long for the remote, it says so.
    static constexpr std::chrono::milliseconds PATIENCE{500};
    /// Text without the end of a command is no command from this length on.
    static constexpr std::size_t LONGEST_COMMAND = 64;

    void advance();
    void read();
    /// False while the remote has yet to send.
    bool takeExpected(const TraceEntry& entry);
    /// What is left of the pause before an entry.
    std::chrono::microseconds pauseBefore(const TraceEntry& entry) const;
    void passed(const TraceEntry& entry);
    void play(const TraceEntry& entry);
    void takeSurplus();
    void end();
    std::string takeCommand();
    std::string expectedBehind(std::size_t position) const;
    void disconnected();

    QTcpSocket* socket_;
    const std::vector<TraceEntry> entries_;
    const Pace pace_;
    const bool verbose_;
    const Tell tell_;
    std::size_t next_ = 0;                    ///< the entry to be played
    std::size_t toldPause_ = ~std::size_t{0}; ///< the last entry that a pause was before
    std::string input_;
    std::vector<std::string> missed_; ///< commands that did not come
    // Pauses are counted from here: the same moment now and in the trace.
    QElapsedTimer sinceMark_;
    std::chrono::microseconds mark_;
    QTimer pause_;
    QTimer patience_;
    bool endAfterWrite_ = false;
};

} // namespace lumbra::sim

#pragma once

#include "simulator/CommandReader.h"
#include "simulator/Faults.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTcpSocket>
#include <QTimer>

#include <chrono>
#include <cstdint>
#include <deque>
#include <string>

namespace lumbra::sim {

/// A client of the simulated unit: splits what it sends into commands, and sends it reports under the faults
/// that concern the bytes of a connection. Belongs to the thread of its event loop.
///
/// Memory stays bounded: while BACKLOG_PAUSE bytes wait for the client, its commands are not read. A client
/// is dropped once changes made by others raise that to more than BACKLOG_LIMIT.
class ClientConnection : public QObject {
    Q_OBJECT

public:
    static constexpr std::int64_t BACKLOG_LIMIT = 1 << 20;
    static constexpr std::int64_t BACKLOG_PAUSE = 1 << 16;

    /// Takes ownership of `socket`. `faults` outlives the connection.
    ClientConnection(QTcpSocket* socket, const Faults& faults, QObject* parent);

    /// "address:port" of the client.
    const std::string& name() const { return name_; }

    /// Queues bytes for the client. False if nothing is sent to it (any more).
    bool send(const std::string& bytes);

    /// True while our side is closed and the client's is not.
    bool hasEnded() const { return phase_ == Phase::ENDED; }

    /// The bytes that are queued in this process.
    std::int64_t backlog() const;

Q_SIGNALS:
    void commandReceived(const lumbra::sim::CommandReader::Command& command);
    /// All bytes have left this process. Emitted from the event loop.
    void drained();
    /// The connection is over; `reason` is a clause such as "closed by the client". Emitted once, from the
    /// event loop.
    void closed(const QString& reason);

private:
    struct Delayed {
        std::int64_t due;
        std::string bytes;
    };

    enum class Phase {
        LIVE,
        ENDED, ///< our side is closed, the client's not yet
        OVER,
    };

    void readCommands();
    void releaseDelayed();
    void pump();
    void written();
    /// The bytes that may still be sent before a reset or an end.
    std::int64_t allowance() const;
    void finish();
    void drop(const QString& reason);

    QTcpSocket* socket_;
    const Faults& faults_;
    std::string name_;
    CommandReader reader_;
    QElapsedTimer clock_;
    QTimer delayTimer_;
    std::deque<Delayed> delayed_;
    std::int64_t delayedBytes_ = 0;
    QByteArray outgoing_;
    std::int64_t sent_ = 0;
    bool reading_ = false;
    bool pumping_ = false;
    Phase phase_ = Phase::LIVE;
};

} // namespace lumbra::sim

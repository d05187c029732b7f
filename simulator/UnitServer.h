#pragma once

#include "simulator/ClientConnection.h"
#include "simulator/Faults.h"
#include "simulator/FloodPace.h"
#include "simulator/TcpServer.h"
#include "simulator/Unit.h"

#include <QTimer>

#include <cstdint>
#include <functional>
#include <random>
#include <string>
#include <vector>

namespace lumbra::sim {

/// A simulated unit on the network: serves up to MAX_CLIENTS clients, sends every change to all of them, and
/// answers a state query to the client that asked. Runs on the event loop of the thread that owns it.
class UnitServer : public TcpServer {
    Q_OBJECT

public:
    /// A further client replaces one whose connection we have ended and that has not closed its side. If
    /// there is none, the new client is turned away.
    static constexpr std::size_t MAX_CLIENTS = 64;

    /// Commands received so far.
    struct Statistics {
        std::uint64_t carried_out = 0;
        std::uint64_t refused = 0;   ///< malformed or out of range
        std::uint64_t elsewhere = 0; ///< for another unit number
    };

    explicit UnitServer(Unit unit = Unit(), Faults faults = {}, QObject* parent = nullptr);

    const Unit& unit() const { return unit_; }
    const Statistics& statistics() const { return statistics_; }
    std::size_t clientCount() const { return clients_.size(); }

    /// Sets the function that receives the trace of clients, commands and reports, each as a line of
    /// printable ASCII.
    void setTrace(std::function<void(const std::string&)> sink) { trace_ = std::move(sink); }

Q_SIGNALS:
    /// A command was executed that may have changed the memory.
    void changed();

private:
    void welcome(QTcpSocket* socket) override;
    void acceptFailed(const std::string& problem) override;
    /// Drops the first client whose connection we have ended and that has not closed its side. False if there
    /// is none.
    bool dropEnded();
    void execute(ClientConnection& client, const CommandReader::Command& command);
    void tell(const std::vector<ClientConnection*>& clients, const std::vector<std::string>& reports);
    void remove(ClientConnection* client, const QString& reason);
    void floodOnTime();
    std::string someReports(std::int64_t count);
    std::string noise();
    void trace(const std::string& who, const char* direction, const std::string& text) const;

    Unit unit_;
    const Faults faults_;
    std::vector<ClientConnection*> clients_; // children
    Statistics statistics_;
    std::function<void(const std::string&)> trace_;
    std::mt19937 random_;
    QTimer floodTimer_;
    QElapsedTimer floodClock_;
    FloodPace floodPace_;
    std::vector<std::string> floodReports_;
};

} // namespace lumbra::sim

#pragma once

#include "platform/Lifetime.h"
#include "platform/MainQueue.h"

#include <QHostAddress>
#include <QTcpSocket>

#include <chrono>
#include <map>
#include <memory>

namespace lumbra::web {

/// How many clients there are, and from where.
struct ClientCounts {
    int total = 0;
    std::map<QString, int> fromAddress;
};

/// The connection of a client, which is bounded in all that it can cost. It counts itself as long as it lives: others
/// may take its signals away. Main thread only.
class ClientSocket final : public QTcpSocket {
    Q_OBJECT
public:
    /// The most clients in all, and from one address other than the loopback.
    static constexpr int MOST = 64;
    static constexpr int MOST_FROM_ONE = 16;
    /// So many pieces of input are taken in a PERIOD: 200 a second. The rest waits in the kernel.
    static constexpr int ALLOWANCE = 50;
    static constexpr std::chrono::milliseconds PERIOD{250};
    /// With more output than this waiting the connection is aborted.
    static constexpr qint64 MOST_OUTPUT = qint64{512} << 10;

    /// Takes the descriptor of an accepted connection, with the options that a remote needs. `queue` outlives the
    /// socket.
    ClientSocket(qintptr descriptor, MainQueue& queue, std::shared_ptr<ClientCounts> counts);
    ~ClientSocket() override;

    /// False if there are too many clients with this one.
    bool isAdmitted() const;

    /// A piece of input has been taken: a frame of a WebSocket, of any kind.
    void spend();
    /// Holds input back, which then waits in the kernel, or lets it in again.
    void setHeld(bool held);

    qint64 bytesAvailable() const override { return isHeld() ? 0 : QTcpSocket::bytesAvailable(); }

protected:
    qint64 writeData(const char* data, qint64 size) override;

private:
    bool isHeld() const { return held_ || allowance_ <= 0; }
    void announce();

    MainQueue& queue_;
    std::shared_ptr<ClientCounts> counts_;
    QString address_; ///< as it is counted
    int allowance_ = ALLOWANCE;
    bool held_ = false;
    Lifetime life_;
};

} // namespace lumbra::web

#pragma once

#include <QHostAddress>
#include <QObject>
#include <QSocketNotifier>
#include <QTcpServer>
#include <QTcpSocket>

#include <memory>
#include <string>

namespace lumbra::sim {

/// Listens, and accepts one client after another. While that fails, usually because descriptors have run out,
/// the clients wait, and it is tried again from time to time. Runs on the event loop of the thread that owns it.
class TcpServer : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    /// Starts to listen; port 0 lets the kernel choose. False on failure; `errorString` then says why.
    bool listen(const QHostAddress& address = QHostAddress::LocalHost, quint16 port = 0);
    quint16 port() const { return server_.serverPort(); }
    QHostAddress address() const { return server_.serverAddress(); }
    QString errorString() const { return server_.errorString(); }

protected:
    /// Takes a new client, and ownership of its socket.
    virtual void welcome(QTcpSocket* socket) = 0;
    /// A client could not be accepted; `problem` is a clause. Called after each failed attempt.
    virtual void acceptFailed(const std::string& problem) = 0;

private:
    void accept();

    QTcpServer server_; ///< only listens; `accept` accepts
    std::unique_ptr<QSocketNotifier> acceptable_;
};

} // namespace lumbra::sim

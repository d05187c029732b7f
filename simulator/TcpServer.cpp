#include "simulator/TcpServer.h"

#include <QTimer>

#include <cerrno>
#include <chrono>
#include <cstring>
#include <sys/socket.h>
#include <unistd.h>

namespace lumbra::sim {

namespace {

/// The delay before accepting again after a failure.
constexpr std::chrono::milliseconds ACCEPT_PAUSE{200};

} // namespace

bool TcpServer::listen(const QHostAddress& address, quint16 port) {
    if (!server_.listen(address, port))
        return false;
    // QTcpServer does not always report that accepting failed: it may spin, or never accept again.
    server_.pauseAccepting();
    acceptable_ = std::make_unique<QSocketNotifier>(server_.socketDescriptor(), QSocketNotifier::Read);
    connect(acceptable_.get(), &QSocketNotifier::activated, this, &TcpServer::accept);
    return true;
}

void TcpServer::accept() {
    const int listener = static_cast<int>(server_.socketDescriptor());
    const int descriptor = ::accept4(listener, nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK);
    if (descriptor >= 0) {
        auto socket = std::make_unique<QTcpSocket>();
        if (socket->setSocketDescriptor(descriptor))
            welcome(socket.release());
        else
            ::close(descriptor);
        return;
    }
    acceptFailed(std::string("can't accept: ") + std::strerror(errno));
    // The client still waits, so the notifier would fire again at once.
    acceptable_->setEnabled(false);
    QTimer::singleShot(ACCEPT_PAUSE, acceptable_.get(), [this] { acceptable_->setEnabled(true); });
}

} // namespace lumbra::sim

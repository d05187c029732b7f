#include "EventLoop.h"
#include "Loopback.h"
#include "link/ServerConnection.h"
#include "system/FixedReachability.h"
#include "system/QtMainQueue.h"
#include "system/RedirectingStreamFactory.h"
#include "system/SocketStreamFactory.h"
#include "system/ThreadWorker.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace lumbra {
namespace {

/// A screen that notes what it is told.
class NotingScreen final : public ServerConnectionDelegate {
public:
    virtual ~NotingScreen() = default;

    void displayConnectionError() override { ++errors; }
    void dataReceived(const ReceiveBuffer& buffer, std::size_t count) override {
        bytes.append(buffer.begin(), buffer.begin() + count);
        counts.push_back(count);
    }
    void serverConnected() override { ++connects; }

    int errors = 0;
    int connects = 0;
    std::string bytes;
    std::vector<std::size_t> counts;
};

class ConnectionOverSockets : public ::testing::Test {
protected:
    ConnectionOverSockets() { connection->setDelegate(screen); }

    void openOnWorker() {
        worker.post([connection = connection, attempt = connection->nextOpenAttempt()] {
            connection->open(attempt);
        });
    }

    Listener listener;
    QtMainQueue queue;
    SocketStreamFactory sockets{queue};
    RedirectingStreamFactory streams{sockets, {"127.0.0.1", listener.port()}};
    FixedReachability reachability{true};
    ThreadWorker worker;
    std::shared_ptr<ServerConnection> connection =
        std::make_shared<ServerConnection>(queue, streams, reachability);
    std::shared_ptr<NotingScreen> screen = std::make_shared<NotingScreen>();
};

TEST_F(ConnectionOverSockets, CarriesCommandsAndReportsUntilTheUnitEndsIt) {
    openOnWorker();
    ASSERT_TRUE(runUntil([&] { return screen->connects == 1; }));
    auto unit = listener.accept();
    const std::string command = "[U1SERIAL0]";
    EXPECT_EQ(connection->sendData({reinterpret_cast<const std::uint8_t*>(command.data()), command.size()}),
              11);
    EXPECT_EQ(unit.receive(11), command);
    const std::string reports(600, 'r');
    unit.send(reports);
    unit.close();
    ASSERT_TRUE(runUntil([&] { return connection->linkState() == LinkState::Closed; }));
    settle();
    EXPECT_EQ(screen->bytes, reports);
    EXPECT_EQ(screen->counts, (std::vector<std::size_t>{256, 256, 88}));
    EXPECT_EQ(screen->errors, 0);
    EXPECT_EQ(screen->connects, 1);
}

TEST_F(ConnectionOverSockets, ACloseWhileTheWorkerOpensLeavesNothingOpen) {
    const int before = openSockets();
    // The close falls before, into and after the worker's work, as the threads happen to run.
    for (int round = 0; round < 50; ++round) {
        openOnWorker();
        for (int turn = 0; turn < round % 5; ++turn)
            QCoreApplication::processEvents();
        connection->closeConnection();
    }
    settle();
    EXPECT_EQ(connection->linkState(), LinkState::Closed);
    EXPECT_EQ(openSockets(), before);
    EXPECT_EQ(screen->errors, 0);
}

TEST_F(ConnectionOverSockets, OpensInARowLeaveExactlyOneConnection) {
    for (int round = 0; round < 5; ++round)
        openOnWorker();
    ASSERT_TRUE(runUntil([&] { return screen->connects > 0; }));
    settle();
    std::vector<Peer> accepted;
    for (auto peer = listener.accept(0); peer.accepted(); peer = listener.accept(0))
        accepted.push_back(std::move(peer));
    int open = 0;
    for (const auto& peer : accepted)
        open += peer.isOpen() ? 1 : 0;
    EXPECT_EQ(open, 1);
    EXPECT_TRUE(connection->isConnected());
}

} // namespace
} // namespace lumbra

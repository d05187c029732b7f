#include "link/ServerConnection.h"

#include "Remote.h"

#include <gtest/gtest.h>

#include <numeric>
#include <thread>

namespace lumbra::test {

struct Recorder final : ServerConnectionDelegate {
    std::string calls, bytes;
    std::function<void()> onData = [] {};
    void displayConnectionError() override { calls += "error "; }
    void serverConnected() override { calls += "connected "; }
    void dataReceived(const ReceiveBuffer& buffer, std::size_t count) override {
        calls += std::to_string(count) + " ";
        bytes.append(buffer.begin(), buffer.begin() + static_cast<std::ptrdiff_t>(count));
        onData();
    }
};

class ServerConnectionTest : public testing::Test {
protected:
    ManualQueue queue;
    ScriptedStreamFactory streams;
    SwitchableReachability reachability;
    std::shared_ptr<ServerConnection> connection =
        std::make_shared<ServerConnection>(queue, streams, reachability);
    std::shared_ptr<Recorder> delegate = std::make_shared<Recorder>();

    ServerConnectionTest() { connection->setDelegate(delegate); }

    bool open() {
        const bool started = connection->open(connection->nextOpenAttempt());
        queue.runPosted();
        return started;
    }
};

TEST_F(ServerConnectionTest, DoesNotOpenWithoutAPair) {
    streams.fails = true;
    EXPECT_FALSE(open() || connection->linkState() != LinkState::Closed || connection->sendData({}) != 0);
}

TEST_F(ServerConnectionTest, ReadsInChunksInsideTheEventUntilItIsClosed) {
    std::string sent(600, 'a');
    std::iota(sent.begin(), sent.end(), '\0');
    open();
    streams.last().connect();
    queue.runPosted();
    delegate->calls.clear();
    streams.last().feed(sent);
    EXPECT_EQ(delegate->calls, "256 256 88 ");
    EXPECT_EQ(delegate->bytes, sent);
    streams.last().readResults = {0};
    streams.last().fireInput(StreamEvent::HasBytesAvailable);
    EXPECT_EQ(delegate->calls, "256 256 88 0 ") << "the end is told as no bytes";
    open();
    delegate->onData = [this] { connection->closeConnection(); };
    streams.last().feed(sent);
    EXPECT_EQ(delegate->calls, "256 256 88 0 256 ");
    EXPECT_EQ(streams.liveStreams(), 0);
}

// The later attempt's pair comes first and stays.
TEST_F(ServerConnectionTest, AnAttemptThatIsOvertakenNeverComesAlive) {
    connection->setIpAddress("10.0.0.1");
    const auto first = connection->nextOpenAttempt();
    connection->setIpAddress("10.0.0.2");
    const auto second = connection->nextOpenAttempt();
    EXPECT_TRUE(connection->open(second));
    EXPECT_TRUE(connection->open(first));
    queue.runPosted();
    EXPECT_EQ(streams.pair(0).host, "10.0.0.2");
    EXPECT_EQ(streams.pair(0).live(), 2);
    EXPECT_EQ(streams.pair(1).host, "10.0.0.1");
    EXPECT_EQ(streams.pair(1).live(), 0);
}

// Run under the thread sanitizer: attempts on a thread while the main thread changes, closes, reads and ends.
TEST_F(ServerConnectionTest, OpensOnAWorkerWhileTheMainThreadGoesOn) {
    for (int round = 0; round < 200; ++round) {
        std::thread worker([attempt = connection->nextOpenAttempt()] { ServerConnection::open(attempt); });
        connection->setIpAddress("10.0.0." + std::to_string(round));
        queue.runPosted();
        if (round % 3 == 0)
            connection->closeConnection();
        if (round % 3 == 1)
            connection = std::make_shared<ServerConnection>(queue, streams, reachability);
        worker.join();
        queue.runPosted();
        EXPECT_EQ(streams.liveStreams(), round % 3 == 2 ? 2 : 0);
    }
}

} // namespace lumbra::test

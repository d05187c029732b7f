#include "link/ServerConnection.h"

#include "ManualQueue.h"
#include "ScriptedStreams.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

namespace lumbra {
namespace {

struct Reachable final : Reachability {
    bool reachable = true;
    bool isReachable() const override { return reachable; }
};

struct Recorder final : ServerConnectionDelegate {
    std::vector<std::string> calls;
    std::string bytes;
    std::function<void()> onData = [] {};
    void displayConnectionError() override { calls.emplace_back("error"); }
    void serverConnected() override { calls.emplace_back("connected"); }
    void dataReceived(const ReceiveBuffer& buffer, std::size_t count) override {
        calls.push_back("data " + std::to_string(count));
        bytes.append(buffer.begin(), buffer.begin() + static_cast<std::ptrdiff_t>(count));
        if (count < buffer.size()) {
            EXPECT_EQ(buffer[count], 0);
        }
        onData();
    }
};

class ServerConnectionTest : public testing::Test {
protected:
    ManualQueue queue;
    ScriptedStreamFactory streams;
    Reachable reachability;
    std::shared_ptr<ServerConnection> connection =
        std::make_shared<ServerConnection>(queue, streams, reachability);
    std::shared_ptr<Recorder> delegate = std::make_shared<Recorder>();

    ServerConnectionTest() { connection->setDelegate(delegate); }

    bool open() {
        const bool started = connection->open(connection->nextOpenAttempt());
        queue.runPosted();
        return started;
    }
    void openAndConnect() {
        open();
        streams.last().connect();
        queue.runPosted();
        delegate->calls.clear();
    }
    static std::span<const std::uint8_t> bytes(std::string_view text) {
        return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
    }
};

using Calls = std::vector<std::string>;

TEST_F(ServerConnectionTest, OpensInOrderAndToTheUnitsPort) {
    connection->setIpAddress("10.1.2.3");
    EXPECT_TRUE(open());
    EXPECT_EQ(streams.last().host, "10.1.2.3");
    EXPECT_EQ(streams.last().port, 23);
    EXPECT_EQ(streams.last().calls, (Calls{"input.setDelegate", "input.open", "input.schedule",
                                           "output.setDelegate", "output.open", "output.schedule"}));
    EXPECT_EQ(connection->linkState(), LinkState::Opening);
}

TEST_F(ServerConnectionTest, DoesNotOpenWithoutNetworkOrStreams) {
    reachability.reachable = false;
    EXPECT_FALSE(open());
    EXPECT_EQ(streams.created(), 0U);
    reachability.reachable = true;
    for (auto* missing : {&streams.withoutInput, &streams.withoutOutput}) {
        *missing = true;
        EXPECT_FALSE(open());
        *missing = false;
        EXPECT_EQ(connection->linkState(), LinkState::Closed);
    }
    EXPECT_EQ(streams.liveStreams(), 0);
}

// What one event does to an open connection, or to one that is opening.
TEST_F(ServerConnectionTest, ActsOnEachEvent) {
    const struct {
        bool input;
        StreamEvent event;
        bool closes;
        Calls calls;
    } cases[] = {
        {true, StreamEvent::ErrorOccurred, true, {"error"}},
        {false, StreamEvent::ErrorOccurred, true, {"error"}},
        {true, StreamEvent::EndEncountered, true, {}},
        {false, StreamEvent::EndEncountered, true, {}},
        {true, StreamEvent::HasSpaceAvailable, false, {}},
        {false, StreamEvent::HasSpaceAvailable, false, {}},
        {false, StreamEvent::HasBytesAvailable, false, {}},
    };
    for (const bool connected : {true, false}) {
        for (const auto& c : cases) {
            open();
            if (connected)
                streams.last().connect();
            queue.runPosted();
            delegate->calls.clear();
            auto& pair = streams.last();
            c.input ? pair.fireInput(c.event) : pair.fireOutput(c.event);
            EXPECT_TRUE(delegate->calls.empty()) << "told inside the event";
            queue.runPosted();
            EXPECT_EQ(delegate->calls, c.calls);
            EXPECT_EQ(connection->linkState() == LinkState::Closed, c.closes);
            EXPECT_EQ(connection->isConnected(), connected && !c.closes);
            connection->closeConnection();
            EXPECT_EQ(streams.liveStreams(), 0);
        }
    }
}

TEST_F(ServerConnectionTest, ConnectsOnceWhicheverStreamIsFirst) {
    for (const bool inputFirst : {true, false}) {
        open();
        auto& pair = streams.last();
        const auto complete = [&pair](bool input) {
            return input ? pair.fireInput(StreamEvent::OpenCompleted)
                         : pair.fireOutput(StreamEvent::OpenCompleted);
        };
        complete(inputFirst);
        queue.runPosted();
        EXPECT_TRUE(delegate->calls.empty());
        EXPECT_FALSE(connection->isConnected());
        complete(!inputFirst);
        EXPECT_TRUE(connection->isConnected());
        queue.runPosted();
        EXPECT_EQ(delegate->calls, Calls{"connected"});
        delegate->calls.clear();
        connection->closeConnection();
    }
}

TEST_F(ServerConnectionTest, TellsTheDelegateOfTheMomentItRuns) {
    open();
    streams.last().connect();
    const auto next = std::make_shared<Recorder>();
    connection->setDelegate(next);
    queue.runPosted();
    EXPECT_TRUE(delegate->calls.empty());
    EXPECT_EQ(next->calls, Calls{"connected"});
    streams.last().fireOutput(StreamEvent::ErrorOccurred);
    connection->setDelegate(nullptr);
    queue.runPosted();
    EXPECT_EQ(next->calls, Calls{"connected"});
}

TEST_F(ServerConnectionTest, DeliversInChunksInOrderInsideTheEvent) {
    openAndConnect();
    std::string sent;
    for (int i = 0; i < 600; ++i)
        sent += static_cast<char>('a' + i % 26);
    streams.last().feed(sent);
    EXPECT_EQ(delegate->calls, (Calls{"data 256", "data 256", "data 88"}));
    EXPECT_EQ(delegate->bytes, sent);
}

TEST_F(ServerConnectionTest, ReadThatEndsOrFailsClosesInSilence) {
    for (const std::ptrdiff_t result : {0, -1}) {
        openAndConnect();
        streams.last().readResults = {result};
        streams.last().fireInput(StreamEvent::HasBytesAvailable);
        queue.runPosted();
        EXPECT_EQ(delegate->calls, result == 0 ? Calls{"data 0"} : Calls{});
        EXPECT_FALSE(connection->isConnected());
    }
}

TEST_F(ServerConnectionTest, StopsReadingWhenTheDelegateCloses) {
    openAndConnect();
    delegate->onData = [this] { connection->closeConnection(); };
    streams.last().feed(std::string(600, 'x'));
    EXPECT_EQ(delegate->calls, Calls{"data 256"});
    EXPECT_EQ(streams.liveStreams(), 0);
}

TEST_F(ServerConnectionTest, WritesOnceAndTellsHowMuch) {
    EXPECT_EQ(connection->sendData(bytes("early")), 0);
    open();
    EXPECT_EQ(connection->sendData(bytes("opening")), 0);
    streams.last().fireOutput(StreamEvent::OpenCompleted);
    EXPECT_EQ(connection->sendData(bytes("[U1SERIAL0]")), 11);
    streams.last().writeResults = {4, 0, -1};
    EXPECT_EQ(connection->sendData(bytes("[U1APPQ0]")), 4);
    EXPECT_EQ(connection->sendData(bytes("[U1APPQ0]")), 0);
    EXPECT_EQ(connection->sendData(bytes("[U1APPQ0]")), -1);
    EXPECT_EQ(streams.last().written, "[U1SERIAL0][U1A");
    EXPECT_EQ(streams.last().writes.size(), 4U);
    connection->closeConnection();
    EXPECT_EQ(connection->sendData(bytes("late")), 0);
}

TEST_F(ServerConnectionTest, ClosesOutputThenInput) {
    open();
    streams.last().calls.clear();
    connection->closeConnection();
    EXPECT_EQ(streams.last().calls,
              (Calls{"output.remove", "output.close", "output.clearDelegate", "output.destroy",
                     "input.remove", "input.close", "input.clearDelegate", "input.destroy"}));
    connection->closeConnection();
    EXPECT_TRUE(delegate->calls.empty());
}

// The orders in which attempts, their pairs and a close can meet; afterwards at most the newest pair lives.
TEST_F(ServerConnectionTest, AttemptsThatAreOvertakenOrClosedNeverComeAlive) {
    const auto first = connection->nextOpenAttempt();
    connection->closeConnection();
    EXPECT_TRUE(connection->open(first));
    queue.runPosted();
    EXPECT_EQ(connection->linkState(), LinkState::Closed) << "closed before the worker began";

    const auto second = connection->nextOpenAttempt();
    EXPECT_TRUE(connection->open(second));
    connection->closeConnection();
    queue.runPosted();
    EXPECT_EQ(connection->linkState(), LinkState::Closed) << "closed before the hand-over";
    EXPECT_EQ(streams.liveStreams(), 0);

    connection->setIpAddress("10.0.0.1");
    const auto third = connection->nextOpenAttempt();
    connection->setIpAddress("10.0.0.2");
    const auto fourth = connection->nextOpenAttempt();
    EXPECT_TRUE(connection->open(fourth));
    EXPECT_TRUE(connection->open(third));
    queue.runPosted();
    EXPECT_EQ(streams.liveStreams(), 2) << "the later attempt came first and stays";
    EXPECT_EQ(streams.pair(2).host, "10.0.0.2");
    EXPECT_EQ(streams.pair(2).live(), 2);
    EXPECT_EQ(streams.pair(3).host, "10.0.0.1");
}

TEST_F(ServerConnectionTest, ReplacedPairIsReleasedAndItsEventsEnd) {
    openAndConnect();
    auto& replaced = streams.last();
    EXPECT_TRUE(open());
    EXPECT_EQ(replaced.live(), 0);
    EXPECT_FALSE(replaced.fireInput(StreamEvent::ErrorOccurred));
    EXPECT_EQ(connection->linkState(), LinkState::Opening);
    EXPECT_EQ(connection->sendData(bytes("x")), 0) << "the new pair is not open yet";
    streams.last().connect();
    queue.runPosted();
    EXPECT_EQ(delegate->calls, Calls{"connected"});
}

TEST_F(ServerConnectionTest, AnnouncesEachLinkStateOnce) {
    std::string states;
    const auto subscription = connection->onLinkChange([this, &states] {
        const auto state = connection->linkState();
        states += state == LinkState::Open ? 'o' : state == LinkState::Opening ? '.' : 'c';
    });
    open();
    open();
    streams.last().connect();
    connection->closeConnection();
    connection->closeConnection();
    EXPECT_EQ(states, ".oc");
}

// Run under the thread sanitizer: attempts on a thread while the main thread changes, closes and reads.
TEST_F(ServerConnectionTest, OpensOnAWorkerWhileTheMainThreadGoesOn) {
    for (int round = 0; round < 200; ++round) {
        auto attempt = connection->nextOpenAttempt();
        std::thread worker([this, attempt = std::move(attempt)] { connection->open(attempt); });
        connection->setIpAddress("10.0.0." + std::to_string(round));
        queue.runPosted();
        if (round % 3 == 0)
            connection->closeConnection();
        worker.join();
        queue.runPosted();
        EXPECT_EQ(streams.liveStreams(), round % 3 == 0 ? 0 : 2);
    }
}

} // namespace
} // namespace lumbra

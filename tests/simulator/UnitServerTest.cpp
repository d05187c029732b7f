#include "simulator/UnitServer.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <gtest/gtest.h>

#include <cerrno>
#include <linux/tcp.h>
#include <memory>
#include <netinet/in.h>
#include <optional>
#include <set>
#include <string>
#include <sys/socket.h>
#include <unistd.h>
#include <vector>

namespace lumbra::sim {

namespace {

/// Runs the event loop until `done` holds; false when that takes far too long.
template <typename Done>
bool spinUntil(Done done) {
    const QDeadlineTimer deadline(20'000);
    while (!done()) {
        if (deadline.hasExpired())
            return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
    }
    return true;
}

/// A plain socket: unlike a toolkit's, it reads when told and tells FIN from RST.
class Client {
public:
    explicit Client(const UnitServer& server, int receiveBuffer = 0)
        : socket_(::socket(AF_INET, SOCK_STREAM, 0)) {
        if (receiveBuffer > 0)
            ::setsockopt(socket_, SOL_SOCKET, SO_RCVBUF, &receiveBuffer, sizeof receiveBuffer);
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_port = htons(server.port());
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        EXPECT_EQ(::connect(socket_, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    }
    Client(const Client&) = delete;
    Client& operator=(const Client&) = delete;
    ~Client() { ::close(socket_); }

    void send(const std::string& bytes) const {
        std::size_t sent = 0;
        EXPECT_TRUE(spinUntil([&] {
            const ssize_t count =
                ::send(socket_, bytes.data() + sent, bytes.size() - sent, MSG_DONTWAIT | MSG_NOSIGNAL);
            sent += count > 0 ? static_cast<std::size_t>(count) : 0;
            return sent == bytes.size();
        }));
    }

    /// Takes what has arrived.
    const std::string& received() {
        char buffer[65536];
        while (!closed_ && error_ == 0) {
            const ssize_t count = ::recv(socket_, buffer, sizeof buffer, MSG_DONTWAIT);
            if (count > 0)
                received_.append(buffer, static_cast<std::size_t>(count));
            else if (count == 0)
                closed_ = true;
            else if (errno == EAGAIN || errno == EWOULDBLOCK)
                break;
            else
                error_ = errno;
        }
        return received_;
    }

    bool over() {
        received();
        return closed_ || error_ != 0;
    }
    int error() const { return error_; }

    bool receives(const std::string& text) {
        std::size_t searched = 0;
        return spinUntil([&] {
                   const std::size_t from = searched < text.size() ? 0 : searched - text.size();
                   searched = received().size();
                   return received_.find(text, from) != std::string::npos || over();
               }) &&
               !over();
    }

    unsigned segments() const {
        tcp_info info{};
        socklen_t length = sizeof info;
        ::getsockopt(socket_, IPPROTO_TCP, TCP_INFO, &info, &length);
        return info.tcpi_data_segs_in;
    }

private:
    int socket_;
    std::string received_;
    bool closed_ = false;
    int error_ = 0;
};

std::string answer(const Unit& unit, int query) {
    std::string bytes;
    for (const std::string& report : unit.answer(query))
        bytes += report;
    return bytes;
}

struct UnitServerTest : testing::Test {
    void start(const Faults& faults = {}) {
        server.emplace(Unit(), faults);
        ASSERT_TRUE(server->listen()) << server->errorString().toStdString();
    }

    std::optional<UnitServer> server;
};

TEST_F(UnitServerTest, answersTheAskerAndTellsEverybody) {
    start();
    Client first(*server);
    Client second(*server);
    ASSERT_TRUE(spinUntil([&] { return server->clientCount() == 2; }));
    first.send("[U1SERIAL0][U1APPQ3]");
    ASSERT_TRUE(first.receives("(U1APPQ3)"));
    EXPECT_EQ(first.received(), answer(server->unit(), 3));
    second.send("[U1Z3V-35]");
    ASSERT_TRUE(first.receives("(U1O4V-35)") && second.receives("(U1O4V-35)"));
    EXPECT_EQ(second.received(), "(U1Z3V-35)(U1O4V-35)");
    EXPECT_EQ(first.received(), answer(server->unit(), 3) + "(U1Z3V-35)(U1O4V-35)");
}

TEST_F(UnitServerTest, assemblesSplitCommandsOfEachClientAndCountsTheRest) {
    start();
    Client first(*server);
    Client second(*server);
    for (const char c : std::string("[U1Z3")) {
        first.send({c});
        QCoreApplication::processEvents();
    }
    second.send("V-50][U2Z3V-60][U1Z3V-99][x]");
    ASSERT_TRUE(spinUntil([&] { return server->statistics().refused == 2; }));
    first.send("V-35]");
    ASSERT_TRUE(first.receives("(U1Z3V-35)"));
    EXPECT_EQ(server->statistics().elsewhere, 1U);
    EXPECT_EQ(server->statistics().carried_out, 1U);
}

TEST_F(UnitServerTest, carriesOutABurstFarLargerThanItsBuffers) {
    start();
    Client client(*server, 65536);
    std::string burst;
    for (int turn = 0; turn < 1200; ++turn)
        burst += "[U1APPQ1]";
    // 5 MB of answers for 11 kB of queries: they must wait in the kernel for a client that reads, not pile up
    // here.
    client.send(burst + "[U1Z3V-35]");
    ASSERT_TRUE(client.receives("(U1O4V-35)"));
    EXPECT_EQ(client.received().size(), 1200 * answer(Unit(), 1).size() + 20);
}

TEST_F(UnitServerTest, dropsAClientThatDoesNotReadAndServesTheOthers) {
    start();
    Client deaf(*server, 4096);
    Client other(*server);
    ASSERT_TRUE(spinUntil([&] { return server->clientCount() == 2; }));
    const std::string burst = "[U1G1V-30][U1G1V-31][U1G1V-32][U1G1V-33]";
    ASSERT_TRUE(spinUntil([&] {
        other.send(burst);
        other.received();
        return server->clientCount() == 1 || server->statistics().carried_out > 200'000;
    }));
    EXPECT_EQ(server->clientCount(), 1U);
    other.send("[U1AO10A2]");
    EXPECT_TRUE(other.receives("(U1AO10A1)"));
    EXPECT_TRUE(spinUntil([&] { return deaf.over(); }));
}

TEST_F(UnitServerTest, turnsAwayClientsBeyondItsMost) {
    start();
    std::vector<std::unique_ptr<Client>> clients;
    while (clients.size() < UnitServer::MAX_CLIENTS) {
        clients.push_back(std::make_unique<Client>(*server));
        ASSERT_TRUE(spinUntil([&] { return server->clientCount() == clients.size(); }));
    }
    Client tooMany(*server);
    EXPECT_TRUE(spinUntil([&] { return tooMany.over(); }));
    clients.pop_back();
    ASSERT_TRUE(spinUntil([&] { return server->clientCount() == UnitServer::MAX_CLIENTS - 1; }));
    Client next(*server);
    next.send("[U1APPQ3]");
    EXPECT_TRUE(next.receives("(U1APPQ3)"));
}

TEST_F(UnitServerTest, saysWhyItCannotListen) {
    start();
    UnitServer second;
    EXPECT_FALSE(second.listen(QHostAddress::LocalHost, server->port()));
    EXPECT_FALSE(second.errorString().isEmpty());
}

TEST_F(UnitServerTest, cutsAConnectionInMidReport) {
    struct Case {
        const char* name;
        std::optional<std::int64_t> Faults::*fault;
        int error;
    };
    const Case CASES[] = {{"reset", &Faults::reset_after, ECONNRESET}, {"end", &Faults::end_after, 0}};
    for (const Case& test : CASES) {
        for (const int split : {0, 7}) {
            Faults faults;
            faults.*test.fault = 50;
            faults.split = split;
            start(faults);
            Client client(*server);
            std::string burst;
            // Commands that are still unread must not turn an end into a reset.
            for (int count = 0; count < 10'000; ++count)
                burst += "[U1APPQ3]";
            client.send(burst);
            ASSERT_TRUE(spinUntil([&] { return client.over(); })) << test.name;
            EXPECT_EQ(client.received(), answer(server->unit(), 3).substr(0, 50)) << test.name;
            EXPECT_EQ(client.error(), test.error) << test.name;
        }
    }
}

TEST_F(UnitServerTest, splitsItsWritesIntoSegments) {
    Faults faults;
    faults.split = 3;
    start(faults);
    Client client(*server);
    client.send("[U1APPQ3]");
    const std::string expected = answer(server->unit(), 3);
    ASSERT_TRUE(client.receives("(U1APPQ3)"));
    EXPECT_EQ(client.received(), expected);
    EXPECT_GE(client.segments(), (expected.size() + 2) / 3); // a segment that is sent again counts again
}

TEST_F(UnitServerTest, delaysEveryReportAndKeepsTheirOrder) {
    Faults faults;
    faults.delay = std::chrono::milliseconds(30);
    start(faults);
    Client client(*server);
    QElapsedTimer clock;
    clock.start();
    client.send("[U1APPQ3][U1Z3V-35]");
    ASSERT_TRUE(client.receives("(U1O4V-35)"));
    EXPECT_GE(clock.elapsed(), 30);
    EXPECT_EQ(client.received(), answer(server->unit(), 3) + "(U1Z3V-35)(U1O4V-35)");
}

TEST_F(UnitServerTest, leavesReportsOfAnswersOut) {
    Faults faults;
    faults.drop = 4;
    start(faults);
    Client client(*server);
    client.send("[U1APPQ3][U1Z3V-35]");
    ASSERT_TRUE(client.receives("(U1O4V-35)"));
    EXPECT_EQ(client.received(),
              "(U1AO1A0)(U1AO2A0)(U1AO3A0)(U1AO5A0)(U1AO6A0)(U1AO7A0)(U1AO9A0)(U1AO10A0)(U1APPQ3)"
              "(U1Z3V-35)(U1O4V-35)");
}

TEST_F(UnitServerTest, staysSilentButListens) {
    Faults faults;
    faults.silence = true;
    start(faults);
    Client client(*server);
    client.send("[U1APPQ3][U1Z3V-35]");
    ASSERT_TRUE(spinUntil([&] { return server->statistics().carried_out == 2; }));
    for (int turn = 0; turn < 10; ++turn)
        QCoreApplication::processEvents();
    EXPECT_EQ(client.received(), "");
    EXPECT_FALSE(client.over());
}

TEST_F(UnitServerTest, floodsWithTrueReportsAndStillServes) {
    for (const int rate : {200'000, 0}) {
        Faults faults;
        faults.flood = rate;
        start(faults);
        Client deaf(*server);
        Client client(*server);
        ASSERT_TRUE(spinUntil([&] { return client.received().size() > (rate == 0 ? 1'000'000U : 20'000U); }));
        std::set<std::string> truth;
        for (int query = 0; query < 5; ++query)
            for (std::string& report : server->unit().answer(query))
                truth.insert(std::move(report));
        const std::string head = client.received().substr(0, 15'000);
        for (std::size_t at = 0, end = 0; (end = head.find(')', at)) != std::string::npos; at = end + 1)
            ASSERT_TRUE(truth.contains(head.substr(at, end + 1 - at))) << head.substr(at, end + 1 - at);
        client.send("[U1Z3BASS-14]");
        ASSERT_TRUE(client.receives("(U1Z3BASS-14)"));
        const std::size_t changed = client.received().find("(U1Z3BASS-14)");
        ASSERT_TRUE(spinUntil([&] { return client.received().size() > changed + 100'000; }));
        EXPECT_EQ(client.received().find("(U1Z3BASS2)", changed), std::string::npos);
    }
}

TEST_F(UnitServerTest, putsRubbishBetweenReports) {
    Faults faults;
    faults.noise = 8;
    start(faults);
    Client client(*server);
    client.send("[U1APPQ4]");
    ASSERT_TRUE(client.receives("(U1APPQ4)"));
    const std::string expected = answer(server->unit(), 4);
    std::string reports;
    bool inside = false;
    for (const char c : client.received()) {
        inside |= c == '(';
        if (inside)
            reports += c;
        inside &= c != ')';
    }
    EXPECT_EQ(reports, expected);
    EXPECT_GT(client.received().size(), expected.size());
}

} // namespace

} // namespace lumbra::sim

#include "simulator/UnitServer.h"

#include "NoDescriptors.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <gtest/gtest.h>

#include <cerrno>
#include <linux/tcp.h>
#include <memory>
#include <netinet/in.h>
#include <regex>
#include <sys/socket.h>

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
    explicit Client(const UnitServer& server, int receiveBuffer = 1 << 20) {
        const int sendBuffer = 1 << 20;
        ::setsockopt(socket_, SOL_SOCKET, SO_SNDBUF, &sendBuffer, sizeof sendBuffer);
        ::setsockopt(socket_, SOL_SOCKET, SO_RCVBUF, &receiveBuffer, sizeof receiveBuffer);
        const sockaddr_in address{AF_INET, htons(server.port()), {htonl(INADDR_LOOPBACK)}, {}};
        EXPECT_EQ(::connect(socket_, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    }
    Client(const Client&) = delete;
    Client& operator=(const Client&) = delete;
    ~Client() { ::close(socket_); }

    void send(const std::string& bytes) const { ::send(socket_, bytes.data(), bytes.size(), MSG_NOSIGNAL); }

    /// All that has arrived, and then how it ended: "FIN" or "RST".
    const std::string& received() {
        char buffer[65536];
        for (ssize_t count = 1; count > 0 && !over_;) {
            count = ::recv(socket_, buffer, sizeof buffer, MSG_DONTWAIT);
            over_ = count == 0 || (count < 0 && errno != EAGAIN);
            received_ +=
                over_ ? (count == 0 ? "FIN" : "RST") : std::string(buffer, count > 0 ? size_t(count) : 0);
        }
        return received_;
    }

    bool receives(const std::string& text, std::size_t from = 0) {
        return spinUntil([&] { return received().find(text, from) != std::string::npos; });
    }

    unsigned segments() const {
        tcp_info info{};
        socklen_t length = sizeof info;
        ::getsockopt(socket_, IPPROTO_TCP, TCP_INFO, &info, &length);
        return info.tcpi_data_segs_in;
    }

private:
    int socket_ = ::socket(AF_INET, SOCK_STREAM, 0);
    std::string received_;
    bool over_ = false;
};

std::string answer(int query) {
    std::string bytes;
    for (const std::string& report : Unit().answer(query))
        bytes += report;
    return bytes;
}

struct UnitServerTest : testing::Test {
    void start(const Faults& faults = {}) {
        server = std::make_unique<UnitServer>(Unit(), faults);
        ASSERT_TRUE(server->listen()) << server->errorString().toStdString();
    }

    std::unique_ptr<Client> newClient(std::size_t count) {
        auto client = std::make_unique<Client>(*server);
        EXPECT_TRUE(spinUntil([&] { return server->clientCount() == count; }));
        return client;
    }

    std::unique_ptr<UnitServer> server;
};

TEST_F(UnitServerTest, answersTheAskerTellsEverybodyAndKeepsClientsApart) {
    start();
    const auto first = newClient(1);
    const auto second = newClient(2);
    first->send("[U1SERIAL0][U1APPQ3][U1Z3");
    ASSERT_TRUE(first->receives("(U1APPQ3)"));
    second->send("V-50][U2Z3V-60][U1Z3V-99][x]");
    ASSERT_TRUE(spinUntil([&] { return server->statistics().refused == 2; }));
    first->send("V-35]");
    ASSERT_TRUE(first->receives("(U1O4V-35)") && second->receives("(U1O4V-35)"));
    EXPECT_EQ(first->received(), answer(3) + "(U1Z3V-35)(U1O4V-35)");
    EXPECT_EQ(second->received(), "(U1Z3V-35)(U1O4V-35)");
    EXPECT_EQ(server->statistics().elsewhere, 1U);
    EXPECT_EQ(server->statistics().carried_out, 3U);
}

// 5 MB of answers for 11 kB of queries must wait in the kernel for a client that reads, not pile up.
TEST_F(UnitServerTest, carriesOutABurstFarLargerThanItsBuffers) {
    start();
    Client client(*server, 65536);
    std::string burst;
    for (int turn = 0; turn < 1200; ++turn)
        burst += "[U1APPQ1]";
    client.send(burst + "[U1Z3V-35]");
    ASSERT_TRUE(spinUntil([&] { return client.received().ends_with("(U1O4V-35)"); }));
    EXPECT_EQ(client.received().size(), 1200 * answer(1).size() + 20);
}

TEST_F(UnitServerTest, dropsAClientThatDoesNotReadAndServesTheOthers) {
    start();
    Client deaf(*server, 4096);
    const auto other = newClient(2);
    ASSERT_TRUE(spinUntil([&] {
        other->send("[U1G1V-30][U1G1V-31][U1G1V-32][U1G1V-33]");
        other->received();
        return server->clientCount() == 1 || server->statistics().carried_out > 200'000;
    }));
    other->send("[U1AO10A2]");
    EXPECT_TRUE(other->receives("(U1AO10A1)"));
    EXPECT_TRUE(deaf.receives("FIN"));
}

TEST_F(UnitServerTest, turnsClientsAwayWhenFullButNotForEndedOnes) {
    for (const std::size_t cut : {0U, 50U}) {
        start(cut > 0 ? Faults{.end_after = cut} : Faults{});
        std::vector<std::unique_ptr<Client>> clients;
        while (clients.size() < UnitServer::MAX_CLIENTS) {
            clients.push_back(newClient(clients.size() + 1));
            clients.back()->send("[U1APPQ3]");
            ASSERT_TRUE(spinUntil([&] { return clients.back()->received().size() >= 50; }));
        }
        Client oneMore(*server);
        oneMore.send("[U1APPQ3]");
        ASSERT_TRUE(oneMore.receives(cut > 0 ? "FIN" : "RST"));
        EXPECT_EQ(oneMore.received().size(), cut + 3);
        clients.pop_back();
        ASSERT_TRUE(spinUntil([&] { return server->clientCount() == UnitServer::MAX_CLIENTS - 1; }));
        newClient(UnitServer::MAX_CLIENTS);
    }
}

TEST_F(UnitServerTest, acceptsAgainOnceThereAreDescriptors) {
    start();
    int failures = 0;
    server->setTrace(
        [&](const std::string& line) { failures += line.find("can't accept") != std::string::npos; });
    const auto first = newClient(1);
    Client client(*server);
    client.send("[U1APPQ3]");
    {
        const NoDescriptors none;
        ASSERT_TRUE(spinUntil([&] { return failures > 0; }));
        for (int turn = 0; turn < 100; ++turn)
            QCoreApplication::processEvents();
        EXPECT_LE(failures, 2) << "it spins";
    }
    EXPECT_TRUE(client.receives("(U1APPQ3)"));
}

TEST_F(UnitServerTest, cutsAConnectionInMidReport) {
    for (const std::string end : {"FIN", "RST"}) {
        for (const int split : {0, 7}) {
            Faults faults{.split = split};
            (end == "FIN" ? faults.end_after : faults.reset_after) = 50;
            start(faults);
            Client client(*server);
            std::string burst;
            for (int count = 0; count < 10'000; ++count)
                burst += "[U1APPQ3]"; // what is still unread must not turn an end into a reset
            client.send(burst);
            ASSERT_TRUE(client.receives(end));
            EXPECT_EQ(client.received(), answer(3).substr(0, 50) + end) << split;
        }
    }
}

TEST_F(UnitServerTest, sendsWhatItsFaultsLeave) {
    const std::string whole = answer(3) + "(U1Z3V-35)(U1O4V-35)";
    struct Case {
        Faults faults;
        std::string reports;
        std::size_t segments; ///< at least: one that is sent again counts again
    };
    const Case CASES[] = {
        {{.delay = std::chrono::milliseconds(30)}, whole, 1},
        {{.split = 3}, whole, answer(3).size() / 3},
        {{.drop = 4},
         "(U1AO1A0)(U1AO2A0)(U1AO3A0)(U1AO5A0)(U1AO6A0)(U1AO7A0)(U1AO9A0)(U1AO10A0)(U1APPQ3)"
         "(U1Z3V-35)(U1O4V-35)",
         1},
        {{.noise = 1000}, whole, 1},
        {{.silence = true}, "", 0},
    };
    for (const Case& test : CASES) {
        start(test.faults);
        Client client(*server);
        QElapsedTimer clock;
        clock.start();
        client.send("[U1APPQ3][U1Z3V-35]");
        const auto reports = [&] {
            return std::regex_replace(client.received(), std::regex(R"([^()]*(\([^()]*\)))"), "$1");
        };
        ASSERT_TRUE(spinUntil([&] {
            return server->statistics().carried_out == 2 && reports().size() >= test.reports.size();
        }));
        EXPECT_GE(clock.elapsed(), test.faults.delay.count());
        QCoreApplication::processEvents();
        EXPECT_EQ(reports(), test.reports);
        EXPECT_EQ(client.received().size() > test.reports.size(), test.faults.noise > 0);
        EXPECT_GE(client.segments(), test.segments);
    }
}

TEST_F(UnitServerTest, floodsWithTrueReportsAndStillServes) {
    std::string truth;
    for (int query = 0; query < 5; ++query)
        truth += answer(query);
    for (const int rate : {200'000, 0}) {
        start({.flood = rate});
        Client deaf(*server);
        Client client(*server);
        ASSERT_TRUE(spinUntil([&] { return client.received().size() > (rate == 0 ? 1'000'000U : 20'000U); }));
        for (std::size_t at = 0, end = 0; at < 15'000; at = end) {
            end = client.received().find(')', at) + 1;
            ASSERT_NE(truth.find(client.received().substr(at, end - at)), std::string::npos) << at;
        }
        client.send("[U1Z3BASS-14]");
        ASSERT_TRUE(client.receives("(U1Z3BASS-14)"));
        const std::size_t changed = client.received().find("(U1Z3BASS-14)");
        ASSERT_TRUE(client.receives("(U1Z4BASS", changed + 100'000));
        EXPECT_EQ(client.received().find("(U1Z3BASS2)", changed), std::string::npos);
    }
}

} // namespace

} // namespace lumbra::sim

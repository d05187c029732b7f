#include "simulator/UnitServer.h"

#include "Loopback.h"

#include <linux/tcp.h>
#include <numeric>
#include <regex>

namespace lumbra::sim::test {

std::string answer(int query) {
    const auto reports = Unit().answer(query);
    return std::accumulate(reports.begin(), reports.end(), std::string());
}

struct UnitServerTest : testing::Test {
    void start(const Faults& faults = {}) {
        server = std::make_unique<UnitServer>(Unit(), faults);
        ASSERT_TRUE(server->listen()) << server->errorString().toStdString();
    }

    /// One that the server has taken as its `count`th.
    std::unique_ptr<Peer> newClient(std::size_t count) {
        auto client = std::make_unique<Peer>(connectTo(server->port()));
        EXPECT_TRUE(runUntil([&] { return server->clientCount() == count; }));
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
    ASSERT_TRUE(runUntil([&] { return server->statistics().refused == 2; }));
    first->send("V-35]");
    ASSERT_TRUE(first->receives("(U1O4V-35)") && second->receives("(U1O4V-35)"));
    EXPECT_EQ(first->received(), answer(3) + "(U1Z3V-35)(U1O4V-35)");
    EXPECT_EQ(second->received(), "(U1Z3V-35)(U1O4V-35)");
    EXPECT_TRUE(server->statistics().elsewhere == 1 && server->statistics().carried_out == 3);
}

TEST_F(UnitServerTest, dropsAClientThatDoesNotReadAndServesTheOthers) {
    start();
    Peer deaf(connectTo(server->port(), 4096));
    const auto other = newClient(2);
    ASSERT_TRUE(runUntil([&] {
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
        std::vector<std::unique_ptr<Peer>> clients;
        while (clients.size() < UnitServer::MAX_CLIENTS) {
            clients.push_back(newClient(clients.size() + 1));
            clients.back()->send("[U1APPQ3]");
            ASSERT_TRUE(runUntil([&] { return clients.back()->received().size() >= 50; }));
        }
        Peer oneMore(connectTo(server->port()));
        oneMore.send("[U1APPQ3]");
        ASSERT_TRUE(oneMore.receives(cut > 0 ? "FIN" : "RST"));
        EXPECT_EQ(oneMore.received().size(), cut + 3);
        clients.pop_back();
        ASSERT_TRUE(runUntil([&] { return server->clientCount() == UnitServer::MAX_CLIENTS - 1; }));
        newClient(UnitServer::MAX_CLIENTS);
    }
}

TEST_F(UnitServerTest, cutsAConnectionInMidReport) {
    for (const std::string end : {"FIN", "RST"}) {
        for (const int split : {0, 7}) {
            start(end == "FIN" ? Faults{.split = split, .end_after = 50}
                               : Faults{.split = split, .reset_after = 50});
            Peer client(connectTo(server->port()));
            // What is still unread must not turn an end into a reset.
            client.send(QByteArray("[U1APPQ3]").repeated(10'000).toStdString());
            ASSERT_TRUE(client.receives(end));
            EXPECT_EQ(client.received(), answer(3).substr(0, 50) + end) << split;
        }
    }
}

TEST_F(UnitServerTest, sendsWhatItsFaultsLeave) {
    const std::string whole = answer(3) + "(U1Z3V-35)(U1O4V-35)";
    // Segments: at least, as one that is sent again counts again.
    const std::tuple<Faults, std::string, std::size_t> CASES[] = {
        {{.delay = std::chrono::milliseconds(30)}, whole, 1},
        {{.split = 3}, whole, answer(3).size() / 3},
        {{.drop = 4}, std::regex_replace(whole, std::regex(R"(\(U1AO[48]A0\))"), ""), 1},
        {{.noise = 1000}, whole, 1},
        {{.silence = true}, "", 0},
    };
    for (const auto& [faults, expected, segments] : CASES) {
        start(faults);
        Peer client(connectTo(server->port()));
        QElapsedTimer clock;
        clock.start();
        client.send("[U1APPQ3][U1Z3V-35]");
        const auto reports = [&] {
            return std::regex_replace(client.received(), std::regex(R"([^()]*(\([^()]*\)))"), "$1");
        };
        ASSERT_TRUE(runUntil([&, size = expected.size()] {
            return server->statistics().carried_out == 2 && reports().size() >= size;
        }));
        EXPECT_GE(clock.elapsed(), faults.delay.count());
        QCoreApplication::processEvents();
        EXPECT_EQ(reports(), expected);
        EXPECT_EQ(client.received().size() > expected.size(), faults.noise > 0);
        tcp_info info{};
        socklen_t length = sizeof info;
        ::getsockopt(client.socket(), IPPROTO_TCP, TCP_INFO, &info, &length);
        EXPECT_GE(info.tcpi_data_segs_in, segments);
    }
}

TEST_F(UnitServerTest, floodsWithTrueReportsAndStillServes) {
    const auto truth = answer(0) + answer(1) + answer(2) + answer(3) + answer(4);
    for (const int rate : {200'000, 0}) {
        start({.flood = rate});
        Peer deaf(connectTo(server->port()));
        Peer client(connectTo(server->port()));
        ASSERT_TRUE(runUntil([&] { return client.received().size() > (rate == 0 ? 1'000'000U : 20'000U); }));
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

} // namespace lumbra::sim::test

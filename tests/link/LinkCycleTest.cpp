#include "Remote.h"

#include <gtest/gtest.h>

namespace lumbra {
namespace {

TEST(LinkCycle, RunsAsPlayed) {
    const Scenario scenarios[] = {
        {"the first screen announces, then queries", R"(
            link opening
            connect
            link open
            sent [U1SERIAL0] [U1APPQ0]
            show spinner turning
            > U2APPQ0
            show spinner turning
            > U1APPQ0
            show spinner stopped)"},
        {"without queries only the announcement is sent", R"(
            set polling_preference false
            set serial_port_preference true
            set unit_number_preference 4
            set ip_address_preference 10.0.0.9
            away
            back
            connect
            sent [U4SERIAL1]
            show spinner stopped)"},
        {"a screen shown on an open connection only queries", R"(
            connect
            sent [U1SERIAL0] [U1APPQ0]
            tab group
            sent [U1APPQ4]
            tab override
            sent [U1APPQ3]
            tab scene
            sent [U1APPQ2]
            tab zone
            sent [U1APPQ0]
            tab zone
            sent)"},
        {"a report begun before a tab change is lost", R"(
            connect
            raw (U1G1V-
            tab group
            raw 30)(U1G1V-20)
            show volumeSlider -20)"},
        {"the query is repeated and the old answer's end stops it", R"(
            connect
            > U1APPQ0
            tab group
            > U1APPQ0
            show spinner turning
            > U1APPQ4
            show spinner stopped)"},
        {"an error during a query alerts once and leaves the indicator", R"(
            connect
            error
            link closed
            alerts 1
            alert Failed to connect to IP address 192.168.1.50.
            show spinner turning)"},
        {"an end is silent; the next screen connects again", R"(
            connect
            sent [U1SERIAL0] [U1APPQ0]
            end
            link closed
            alerts 0
            switch muteSwitch on
            sent
            tab group
            link opening
            connect
            sent [U1SERIAL0] [U1APPQ4])"},
        {"a refused connect alerts once", R"(
            error
            alerts 1)"},
        {"no network alerts with the address of that moment", R"(
            away
            network off
            set ip_address_preference not an address
            back
            alerts 1
            link closed)"},
        {"no thread for the connect alerts, and the next one works", R"(
            away
            threads off
            back
            alerts 1
            link closed
            threads on
            tab group
            link opening)"},
        {"a failed announcement is followed by the query", R"(
            write -1
            connect
            alerts 1
            sent [U1SERIAL0] [U1APPQ0]
            show spinner turning)"},
        {"both writes fail: two alerts, the indicator stops", R"(
            write -1
            write -1
            connect
            alerts 2
            show spinner stopped
            link open)"},
        {"short and empty writes are no failures", R"(
            write 3
            write 0
            connect
            alerts 0
            show spinner turning)"},
        {"a control's failed write is silent", R"(
            connect
            write -1
            switch muteSwitch on
            alerts 0)"},
        {"inactive without background: closed, and not opened on return", R"(
            connect
            resign
            link closed
            activate
            link closed
            alerts 0
            tab group
            link opening)"},
        {"after the first background every activation reconnects", R"(
            connect
            away
            link closed
            back
            connect
            sent [U1SERIAL0] [U1APPQ0] [U1SERIAL0] [U1APPQ0]
            resign
            activate
            link opening
            sockets 1)"},
        {"activation while open queries again", R"(
            connect
            away
            back
            connect
            sent [U1SERIAL0] [U1APPQ0] [U1SERIAL0] [U1APPQ0]
            activate
            sent [U1APPQ0])"},
    };
    for (const auto& scenario : scenarios) {
        Remote remote;
        remote.launch(false);
        EXPECT_EQ(remote.play(scenario.script), "") << scenario.name;
    }
}

TEST(LinkCycle, ResigningWhileTheWorkerOpensLeavesNothingAlive) {
    Remote remote;
    remote.application.launch();
    remote.application.resignActive();
    remote.settle();
    EXPECT_EQ(remote.streams.liveStreams(), 0);
    EXPECT_EQ(remote.play("link closed\nalerts 0"), "");
}

TEST(LinkCycle, AlertIsAskedForInALaterTurn) {
    Remote remote;
    remote.launch(false);
    remote.streams.last().fireOutput(StreamEvent::ErrorOccurred);
    EXPECT_FALSE(remote.application.alerts().shown());
    remote.queue.runTurn();
    EXPECT_FALSE(remote.application.alerts().shown());
    remote.queue.runTurn();
    ASSERT_TRUE(remote.application.alerts().shown());
    EXPECT_EQ(remote.application.alerts().shown()->title, "Error");
    EXPECT_EQ(remote.application.alerts().shown()->button, "OK");
}

} // namespace
} // namespace lumbra

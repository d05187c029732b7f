#include "Remote.h"

#include <gtest/gtest.h>

namespace lumbra::test {

TEST(LinkCycle, RunsAsPlayed) {
    const Scenario scenarios[] = {
        {"the first screen announces, then queries", R"(
            peer 192.168.1.50:23 ; link opening ; input opened ; link opening ; switch muteSwitch on ; sent ; output opened ; link open ; sent [U1SERIAL0] [U1APPQ0]
            show spinner turning ; > U2APPQ0 ; show spinner turning ; > U1APPQ0 ; show spinner stopped)"},
        {"without queries only the announcement is sent", R"(
            set polling_preference false ; set serial_port_preference true ; set unit_number_preference 4
            set ip_address_preference 10.0.0.9
            away ; back ; peer 10.0.0.9:23 ; connect ; sent [U4SERIAL1] ; show spinner stopped)"},
        {"a screen shown on an open connection only queries", R"(
            connect ; sent [U1SERIAL0] [U1APPQ0] ; tab group ; sent [U1APPQ4] ; tab override ; sent [U1APPQ3]
            tab scene ; sent [U1APPQ2] ; tab zone ; sent [U1APPQ0] ; tab zone ; sent)"},
        {"a report begun before a tab change is lost", R"(
            connect ; raw (U1G1V- ; tab group ; raw 30)(U1G1V-20) ; show volumeSlider -20)"},
        {"the query is repeated and the old answer's end stops it", R"(
            connect ; > U1APPQ0 ; tab group ; > U1APPQ0 ; show spinner turning ; > U1APPQ4 ; show spinner stopped)"},
        {"an error alerts once and leaves the indicator", R"(
            connect ; error ; link closed ; sockets 0 ; alerts 1 ; show spinner turning
            alert Failed to connect to IP address 192.168.1.50. ; tab group ; error ; link closed ; sockets 0 ; alerts 1)"},
        {"an end is silent; the next screen connects again", R"(
            connect ; sent [U1SERIAL0] [U1APPQ0] ; end ; link closed ; sockets 0 ; switch muteSwitch on ; sent
            tab group ; link opening ; connect ; sent [U1SERIAL0] [U1APPQ4] ; end ; link closed ; alerts 0)"},
        {"a read that ends or fails closes in silence", R"(
            connect ; reads 0 ; input bytes ; link closed ; tab group ; connect ; reads -1 ; input bytes ; link closed
            alerts 0)"},
        {"space is nothing", "connect ; output space ; link open ; alerts 0"},
        {"an alert is asked for in a later turn", R"(
            hold ; error ; link closed ; alert none ; turn ; alert none
            turn ; alert Failed to connect to IP address 192.168.1.50.)"},
        {"the screen of the moment hears that the link is open", R"(
            hold ; connect ; sent ; tab group ; settle ; sent [U1APPQ4] [U1SERIAL0] [U1APPQ4])"},
        {"no network alerts with the address of that moment", R"(
            away ; network off ; set ip_address_preference not an address ; back ; alerts 1 ; link closed
            alert Failed to connect to IP address not an address.)"},
        {"no thread for the connect alerts, and the next one works", R"(
            away ; threads off ; back ; alerts 1 ; link closed ; threads on ; tab group ; link opening)"},
        {"a failed announcement is followed by the query", R"(
            write -1 ; connect ; alerts 1 ; sent [U1SERIAL0] [U1APPQ0] ; show spinner turning)"},
        {"both writes fail: two alerts, the indicator stops", R"(
            write -1 ; write -1 ; connect ; alerts 2 ; show spinner stopped ; link open)"},
        {"short and empty writes are no failures", R"(
            write 3 ; write 0 ; connect ; alerts 0 ; sent [U1SERIAL0] [U1APPQ0] ; show spinner turning)"},
        {"a control's failed write is silent", R"(
            connect ; write -1 ; switch muteSwitch on ; alerts 0)"},
        {"inactive without background: closed, and not opened on return", R"(
            connect ; resign ; link closed ; activate ; link closed ; alerts 0 ; tab group ; link opening)"},
        {"after the first background every activation reconnects", R"(
            connect ; tab group ; tab zone ; sent [U1SERIAL0] [U1APPQ0] [U1APPQ4] [U1APPQ0]
            away ; link closed ; back ; connect ; sent [U1SERIAL0] [U1APPQ0]
            resign ; activate ; link opening ; sockets 1 ; connect ; sent [U1SERIAL0] [U1APPQ0]
            activate ; sent [U1APPQ0])"},
        {"resigning before the worker begins, and before it hands over, leaves nothing alive", R"(
            end ; hold ; tab group ; resign ; settle ; link closed ; sockets 0
            hold ; tab zone ; work ; resign ; settle ; link closed ; sockets 0 ; alerts 0)"},
        {"a replaced pair is released, and what it had reported is forgotten", R"(
            output opened ; tab group ; link opening ; sockets 1 ; switch muteSwitch on ; sent
            input opened ; link opening ; output opened ; link open ; sent [U1SERIAL0] [U1APPQ4])"},
    };
    EXPECT_EQ(playAll(scenarios, ""), "");
}

} // namespace lumbra::test

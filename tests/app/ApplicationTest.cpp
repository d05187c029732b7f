#include "Remote.h"
#include "app/AddressHint.h"
#include "app/DefaultName.h"

#include <gtest/gtest.h>

namespace lumbra::test {

TEST(Settings, AreTakenAllOrNone) {
    // `back` reads them again, where the application has been away.
    const Scenario scenarios[] = {
        {"a first start stores what the link has, and nothing else", R"(
            stored ip_address_preference 192.168.1.50 ; stored unit_number_preference 1
            stored polling_preference true ; stored serial_port_preference false
            stored start_tab_preference absent ; stored advanced_mode_preference absent)"},
        {"valid ones are taken, also an empty address", R"(
            set ip_address_preference 10.0.0.1 ; set unit_number_preference 4 ; back
            peer 10.0.0.1:23 ; connect ; sent [U4SERIAL0] [U4APPQ0] ; away
            set ip_address_preference ; set unit_number_preference 1 ; back ; peer :23 ; stored ip_address_preference )"},
        {"a unit out of range discards a good address and both flags", R"(
            set ip_address_preference 10.0.0.1 ; set unit_number_preference 5 ; set serial_port_preference true
            set polling_preference false ; back ; peer 192.168.1.50:23 ; stored ip_address_preference 192.168.1.50
            stored unit_number_preference 1 ; stored polling_preference true ; stored serial_port_preference false
            away ; set unit_number_preference 0 ; set ip_address_preference 10.0.0.1 ; back ; peer 192.168.1.50:23
            stored unit_number_preference 1)"},
        {"a unit that is no number, and no address", R"(
            set ip_address_preference 10.0.0.1 ; set unit_number_preference two ; back ; peer 192.168.1.50:23
            stored unit_number_preference 1 ; away
            unset ip_address_preference ; set unit_number_preference 2 ; back ; connect ; sent [U1SERIAL0] [U1APPQ0])"},
    };
    EXPECT_EQ(playAll(scenarios, "connect ; away"), "");
}

TEST(Launch, ShapesTheTabsAndSelectsTheStartTab) {
    const Scenario cases[] = {
        {"", "zone group override scene 0"},
        {"set start_tab_preference 2", "zone group override scene 2"},
        {"set start_tab_preference 4", "zone group override scene 0"},
        {"set start_tab_preference 4294967297", "zone group override scene 0"},
        {"set advanced_mode_preference true ; set start_tab_preference 3", "output group override scene 3"},
    };
    for (const auto& [settings, expected] : cases) {
        Remote remote;
        ASSERT_EQ(remote.play(settings), "");
        remote.launch();
        std::string tabs;
        for (const auto& tab : remote.application.tabs().viewControllers())
            tabs += tab->view().name() + " ";
        EXPECT_EQ(tabs + std::to_string(remote.application.tabs().selectedIndex()), expected) << settings;
    }
}

TEST(Life, RunsAsPlayed) {
    const Scenario scenarios[] = {
        {"each selection is stored, also of the tab on show", R"(
            tab override ; stored start_tab_preference 2
            set start_tab_preference 0 ; tab override ; stored start_tab_preference 2)"},
        {"the start tab is selected when the mode changes, over one connection", R"(
            away ; set advanced_mode_preference true ; set start_tab_preference 1 ; back ; screen group ; sockets 1
            connect ; sent [U1SERIAL0] [U1APPQ4] ; tab output ; sent [U1APPQ1])"},
        {"a start tab that does not exist keeps the position", R"(
            tab group ; sent [U1APPQ4] ; away ; set advanced_mode_preference true ; set start_tab_preference 9
            back ; screen group)"},
        {"an unchanged mode leaves the selection alone", R"(
            tab group ; away ; set start_tab_preference 0 ; back ; screen group)"},
        {"the mode switched without background: reshaped, and connected by appearing", R"(
            resign ; set advanced_mode_preference true ; activate ; screen output ; link opening ; sockets 1)"},
        {"settings are read again on return, before connecting", R"(
            away ; set ip_address_preference 10.9.8.7 ; set unit_number_preference 3 ; back
            connect ; sent [U3SERIAL0] [U3APPQ0] ; error ; alert Failed to connect to IP address 10.9.8.7.)"},
        {"to reconnect runs the connect step and nothing else", R"(
            end ; set unit_number_preference 2 ; reconnect ; connect ; sent [U1SERIAL0] [U1APPQ0] ; sockets 1)"},
        {"a mode switch keeps both first screens' models", R"(
            > U1Z1MV-10 ; > U1Z1V-33 ; away ; set advanced_mode_preference true ; back ; connect
            screen output ; sent [U1SERIAL0] [U1APPQ1] ; away ; set advanced_mode_preference false ; back
            screen zone ; show volumeSlider -33)"},
    };
    EXPECT_EQ(playAll(scenarios), "");
}

TEST(Status, FollowsTheLinkAndTheAnswer) {
    const Scenario scenarios[] = {
        {"an answer ends the wait; a late one too", R"(
            status waiting ; wait 4.9 ; status waiting ; > U1APPQ0 ; status current ; wait 9 ; status current
            tab group ; wait 4.9 ; status waiting ; wait 0.1 ; status silent ; > U1G1V-3 ; status silent
            > U2APPQ4 ; status silent ; > U1APPQ4 ; status current ; end ; status offline)"},
        {"each screen waits for its own answer, from its own start", R"(
            wait 3 ; tab group ; wait 3 ; status waiting ; wait 2 ; status silent ; tab scene ; status waiting)"},
        {"a link that opens again, after a query that was never answered", R"(
            wait 9 ; status silent ; end ; status offline ; away ; back ; status offline
            hold ; connect ; status waiting ; settle ; status waiting ; wait 4 ; status waiting ; > U1APPQ0 ; status current)"},
        {"a query that can't be sent is not answered", R"(
            > U1APPQ0 ; write -1 ; tab group ; status waiting ; error ; status offline
            away ; back ; connect ; > U1APPQ4 ; status current)"},
        {"without queries what the link brings is all there is", R"(
            away ; set polling_preference false ; back ; connect ; > U1APPQ0 ; status current ; tab group ; status current)"},
    };
    EXPECT_EQ(playAll(scenarios), "");
}

TEST(Life, KeepsConnectedIfAsked) {
    const Scenario scenarios[] = {
        {"after 2, 5, 10 and then every 30 s, without alerts", R"(
            alerts 0 ; network off ; error ; alerts 1 ; wait 1.9 ; network on ; wait 0.1 ; link opening
            error ; wait 4.9 ; link closed ; wait 0.1 ; link opening ; network off ; error ; wait 10 ; wait 29.9
            network on ; wait 0.1 ; link opening ; error ; wait 30 ; link opening ; alerts 0
            alert Failed to connect to IP address 192.168.1.50. ; connect ; > U1APPQ0 ; alert none
            wait 29.9 ; error ; alerts 0 ; wait 30 ; link opening ; connect ; wait 30 ; error ; alerts 1
            wait 2 ; link opening)"},
        {"the alert of the first failure goes when the first attempt succeeds",
         "error ; wait 2 ; connect ; > U1APPQ0 ; alert none"},
        {"a unit that hangs up before it answers is not asked ever faster", R"(
            end ; wait 2 ; connect ; end ; wait 4.9 ; link closed ; wait 0.1 ; link opening ; alerts 0)"},
        {"nor is one that has nothing to answer", R"(
            away ; set polling_preference false ; back ; connect ; status current ; end ; wait 2 ; connect
            status current ; end ; wait 4.9 ; link closed ; wait 0.1 ; link opening ; error ; alerts 0)"},
        {"what the user starts fails with an alert, and the delays start again", R"(
            end ; wait 2 ; error ; wait 5 ; error ; alerts 0 ; network off ; tab group ; alerts 1
            network on ; wait 2 ; link opening ; error ; wait 5 ; error ; away ; back ; error ; alerts 1
            wait 2 ; link opening)"},
        {"nothing while the application is away", R"(
            away ; wait 99 ; link closed ; back ; link opening ; error ; alerts 1 ; away ; wait 99 ; link closed)"},
    };
    EXPECT_EQ(playAll(scenarios, "connect", Reconnection::Automatic), "");
}

TEST(AddressHint, TellsWhatIsOddAndNothingElse) {
    for (const char* fine :
         {"192.168.1.50", "0.0.0.0", "unit.local", "lumbra", "küche-2", "fe80::1%eth0", "::a"})
        EXPECT_FALSE(addressHint(fine)) << fine;
    for (const char* odd :
         {"", "192.168.1", "192.168.1.256", "192.168.1.0050", "192.168..50", "1.2.3.4.5", ".",
          "192.168.1.50 ", "unit\u00a0", "192.168.1.50:23", "unit:23", "http//x", "unit\u201d"})
        EXPECT_TRUE(addressHint(odd)) << odd;
}

TEST(DefaultName, IsNoNameThatSomebodyHasGiven) {
    for (const auto& [name, english] : {std::pair("Zone 1", "Zone 1"),
                                        {"Source 20", "Source 20"},
                                        {"Zone", ""},
                                        {"Zone 100", ""},
                                        {"Zone 1b", ""},
                                        {"Zone ", ""},
                                        {"My Zone 1", ""}})
        EXPECT_EQ(defaultName(name).value_or(Text{}).english(), english) << name;
}

} // namespace lumbra::test

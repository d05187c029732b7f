#include "Remote.h"

#include <gtest/gtest.h>

namespace lumbra {
namespace {

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
    for (const auto& scenario : scenarios) {
        Remote remote;
        remote.launch();
        EXPECT_EQ(remote.play("away"), "");
        EXPECT_EQ(remote.play(scenario.script), "") << scenario.name;
    }
}

TEST(Launch, ShapesTheTabsAndSelectsTheStartTab) {
    const Scenario cases[] = {
        {"", "zone group override scene 0"},
        {"set start_tab_preference 2", "zone group override scene 2"},
        {"set start_tab_preference 4", "zone group override scene 0"},
        {"set start_tab_preference -1", "zone group override scene 0"},
        {"set start_tab_preference 4294967297", "zone group override scene 0"},
        {"set advanced_mode_preference true", "output group override scene 0"},
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
        {"a mode switch keeps both first screens' models", R"(
            > U1Z1MV-10 ; > U1Z1V-33 ; away ; set advanced_mode_preference true ; back ; connect
            screen output ; sent [U1SERIAL0] [U1APPQ1] ; away ; set advanced_mode_preference false ; back
            screen zone ; show volumeSlider -33)"},
    };
    for (const auto& scenario : scenarios) {
        Remote remote;
        remote.launch();
        EXPECT_EQ(remote.play(scenario.script), "") << scenario.name;
    }
}

TEST(Life, ReconnectRunsTheConnectStepAndNothingElse) {
    Remote remote;
    remote.launch();
    ASSERT_EQ(remote.play("end ; set unit_number_preference 2"), "");
    remote.application.reconnect();
    EXPECT_EQ(remote.play("settle ; link opening ; connect ; sent [U1SERIAL0] [U1APPQ0] ; sockets 1"), "");
}

TEST(Life, LeavesNothingBehind) {
    auto remote = std::make_unique<Remote>();
    remote->launch();
    ASSERT_EQ(remote->play("slide volumeSlider -20 ; tab group ; wait 1 ; sockets 1"), "");
    const std::weak_ptr<ViewController> screen = remote->application.tabs().selectedViewController();
    const std::weak_ptr<ServerConnection> connection = remote->application.tabs().serverConn();
    remote.reset();
    EXPECT_TRUE(screen.expired());
    EXPECT_TRUE(connection.expired());
}

} // namespace
} // namespace lumbra

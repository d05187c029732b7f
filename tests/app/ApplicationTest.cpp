#include "Remote.h"
#include "app/Settings.h"

#include <gtest/gtest.h>

namespace lumbra {
namespace {

TEST(Settings, AreTakenAllOrNone) {
    // What is stored before the start, and what the connection and the store hold after it.
    const struct {
        const char* name;
        const char* before;
        const char* after;
        const char* address;
        int unit;
    } cases[] = {
        {"first start", "",
         "stored ip_address_preference 192.168.1.50\nstored unit_number_preference 1\n"
         "stored polling_preference true\nstored serial_port_preference false\n"
         "stored start_tab_preference absent\nstored advanced_mode_preference absent",
         "192.168.1.50", 1},
        {"all valid", "set ip_address_preference 10.0.0.1\nset unit_number_preference 4", "", "10.0.0.1", 4},
        {"an empty address is an address", "set ip_address_preference \nset unit_number_preference 1", "", "",
         1},
        {"unit 5 discards a good address and both flags",
         "set ip_address_preference 10.0.0.1\nset unit_number_preference 5\nset serial_port_preference true",
         "stored ip_address_preference 192.168.1.50\nstored unit_number_preference 1\n"
         "stored polling_preference true\nstored serial_port_preference false",
         "192.168.1.50", 1},
        {"unit 0", "set ip_address_preference 10.0.0.1", "stored unit_number_preference 1", "192.168.1.50",
         1},
        {"a unit that is no number", "set ip_address_preference 10.0.0.1\nset unit_number_preference two",
         "stored unit_number_preference 1", "192.168.1.50", 1},
        {"no address", "set unit_number_preference 2", "stored unit_number_preference 1", "192.168.1.50", 1},
    };
    for (const auto& c : cases) {
        Remote remote;
        // It has read its empty store already when it was made.
        for (const auto& entry : SETTINGS)
            remote.settings.remove(entry.key);
        ASSERT_EQ(remote.play(c.before), "") << c.name;
        remote.application.tabs().updateFromPreferences();
        EXPECT_EQ(remote.play(c.after), "") << c.name;
        EXPECT_EQ(remote.application.link().ip_address(), c.address) << c.name;
        EXPECT_EQ(remote.application.link().unit, c.unit) << c.name;
    }
}

std::string tabNames(Remote& remote) {
    std::string names;
    for (const auto& tab : remote.application.tabs().viewControllers())
        names += tab->view().name() + " ";
    return names + std::to_string(remote.application.tabs().selectedIndex());
}

TEST(Launch, ShapesTheTabsAndSelectsTheStartTab) {
    const struct {
        const char* before;
        const char* tabs;
    } cases[] = {
        {"", "zone group override scene 0"},
        {"set start_tab_preference 2", "zone group override scene 2"},
        {"set start_tab_preference 4", "zone group override scene 0"},
        {"set start_tab_preference -1", "zone group override scene 0"},
        {"set start_tab_preference 4294967297", "zone group override scene 0"},
        {"set advanced_mode_preference true", "output group override scene 0"},
        {"set advanced_mode_preference true\nset start_tab_preference 3", "output group override scene 3"},
    };
    for (const auto& c : cases) {
        Remote remote;
        ASSERT_EQ(remote.play(c.before), "");
        remote.launch();
        EXPECT_EQ(tabNames(remote), c.tabs) << c.before;
    }
}

TEST(Life, RunsAsPlayed) {
    const Scenario scenarios[] = {
        {"each selection is stored, also of the tab on show", R"(
            tab override
            stored start_tab_preference 2
            set start_tab_preference 0
            tab override
            stored start_tab_preference 2)"},
        {"advanced mode while away: the output screen, one connection", R"(
            away
            set advanced_mode_preference true
            back
            screen output
            sockets 1
            connect
            sent [U1SERIAL0] [U1APPQ1])"},
        {"the start tab is selected when the mode changes", R"(
            away
            set advanced_mode_preference true
            set start_tab_preference 1
            back
            screen group
            sockets 1
            connect
            sent [U1SERIAL0] [U1APPQ4]
            tab output
            sent [U1APPQ1])"},
        {"a start tab that does not exist keeps the position", R"(
            tab group
            sent [U1APPQ4]
            away
            set advanced_mode_preference true
            set start_tab_preference 9
            back
            screen group)"},
        {"an unchanged mode leaves the selection alone", R"(
            tab group
            away
            set start_tab_preference 0
            back
            screen group)"},
        {"the mode switched without background: reshaped, and connected by appearing", R"(
            resign
            set advanced_mode_preference true
            activate
            screen output
            link opening
            sockets 1)"},
        {"settings are read again on return, before connecting", R"(
            away
            set ip_address_preference 10.9.8.7
            set unit_number_preference 3
            back
            connect
            sent [U3SERIAL0] [U3APPQ0]
            error
            alert Failed to connect to IP address 10.9.8.7.)"},
        {"a mode switch keeps both first screens' models", R"(
            > U1Z1MV-10
            > U1Z1V-33
            away
            set advanced_mode_preference true
            back
            connect
            away
            set advanced_mode_preference false
            back
            show volumeSlider -33)"},
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
    ASSERT_EQ(remote.play("end\nset unit_number_preference 2"), "");
    remote.application.reconnect();
    remote.settle();
    EXPECT_EQ(remote.play("link opening\nconnect\nsent [U1SERIAL0] [U1APPQ0]\nsockets 1"), "");
}

TEST(Life, LeavesNothingBehind) {
    ScriptedStreamFactory* streams = nullptr;
    std::weak_ptr<ViewController> screen;
    std::weak_ptr<ServerConnection> connection;
    auto remote = std::make_unique<Remote>();
    remote->launch();
    ASSERT_EQ(remote->play("slide volumeSlider -20\ntab group\nwait 1"), "");
    streams = &remote->streams;
    screen = remote->application.tabs().selectedViewController();
    connection = remote->application.tabs().serverConn();
    EXPECT_EQ(streams->liveStreams(), 2);
    remote.reset();
    EXPECT_TRUE(screen.expired());
    EXPECT_TRUE(connection.expired());
}

} // namespace
} // namespace lumbra

#include "Process.h"

#include <gtest/gtest.h>
#include <rapidjson/document.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <arpa/inet.h>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <random>
#include <string>
#include <sys/socket.h>
#include <unistd.h>
#include <vector>

namespace {

using namespace lumbra;
namespace fs = std::filesystem;

/// A folder that goes with its object.
class Folder {
public:
    Folder() {
        std::string name = (fs::temp_directory_path() / "lumbra-test-XXXXXX").string();
        path_ = ::mkdtemp(name.data());
    }
    ~Folder() { fs::remove_all(path_); }
    std::string operator/(const char* name) const { return (path_ / name).string(); }

private:
    fs::path path_;
};

/// The simulated unit, as a program on a port of the kernel's choice.
class Simulator {
public:
    explicit Simulator(std::vector<std::string> options = {}) : process_(command(std::move(options))) {
        const auto ready = process_.readLine().value_or("");
        place_ = "127.0.0.1:" + ready.substr(ready.rfind(':') + 1);
    }
    const std::string& place() const { return place_; }
    /// Waits for `text` in what it prints under --verbose.
    bool tells(std::string_view text) { return process_.readUntil(text).has_value(); }

private:
    static std::vector<std::string> command(std::vector<std::string> options) {
        options.insert(options.begin(), {SIMULATOR_PROGRAM, "--port", "0"});
        return options;
    }
    Process process_;
    std::string place_;
};

std::vector<std::string> remoteCommand(const std::string& place, const std::string& settings) {
    return {REMOTE_PROGRAM, "--console", "--json", "--connect-to", place, "--settings", settings};
}

/// A port on which nothing listens: bound, so that nobody else gets it.
class ClosedPort {
public:
    ClosedPort() : socket_(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof address;
        auto* plain = reinterpret_cast<sockaddr*>(&address);
        if (::bind(socket_, plain, size) != 0 || ::getsockname(socket_, plain, &size) != 0)
            std::abort();
        place_ = "127.0.0.1:" + std::to_string(ntohs(address.sin_port));
    }
    ~ClosedPort() { ::close(socket_); }
    const std::string& place() const { return place_; }

private:
    int socket_;
    std::string place_;
};

/// A remote under a script: gives commands and takes their replies; events are set aside.
class Remote {
public:
    explicit Remote(std::vector<std::string> command) : process(std::move(command)) {}

    /// The reply, as one line; an empty text when none comes.
    std::string ask(const std::string& command) {
        process.write(command + "\n");
        while (const auto line = process.readLine()) {
            if (line->starts_with("{\"reply\":"))
                return *line;
            events.push_back(*line);
        }
        return {};
    }
    ::testing::AssertionResult tell(const std::string& command) {
        const auto reply = ask(command);
        if (reply.find("\"ok\":true") != std::string::npos)
            return ::testing::AssertionSuccess();
        return ::testing::AssertionFailure() << command << ": " << reply;
    }
    /// The controls of the screen on show.
    std::string controls() {
        rapidjson::Document state;
        state.Parse(ask("state").c_str());
        if (state.HasParseError() || !state.HasMember("controls"))
            return "no state";
        rapidjson::StringBuffer buffer;
        rapidjson::Writer<rapidjson::StringBuffer> writer(buffer);
        state["controls"].Accept(writer);
        return buffer.GetString();
    }

    Process process;
    std::vector<std::string> events;
};

TEST(EndToEnd, ARemoteShowsAndMovesTheUnit) {
    const Folder folder;
    const Simulator unit;
    {
        Remote remote(remoteCommand(unit.place(), folder / "a.json"));
        EXPECT_TRUE(remote.tell("wait open"));
        EXPECT_TRUE(remote.tell("wait answer"));
        EXPECT_NE(remote.controls().find("\"Living Room\""), std::string::npos);
        EXPECT_TRUE(remote.tell("pick zonePicker 1"));
        EXPECT_TRUE(remote.tell("slide volumeSlider -33.3"));
        EXPECT_TRUE(remote.tell("switch loudnessSwitch on"));
        EXPECT_TRUE(remote.tell("wait 0.8"));
        EXPECT_TRUE(remote.tell("tab scene"));
        EXPECT_TRUE(remote.tell("wait answer"));
        EXPECT_TRUE(remote.tell("quit"));
        EXPECT_EQ(remote.process.wait(), 0);
        EXPECT_EQ(remote.process.errors(), "");
        EXPECT_EQ(remote.events.front(),
                  "{\"event\":\"screen\",\"screen\":\"zone\",\"tabs\":[\"zone\",\"group\","
                  "\"override\",\"scene\"],\"selected\":0}");
    }
    Remote later(remoteCommand(unit.place(), folder / "a.json"));
    EXPECT_TRUE(later.tell("wait open"));
    EXPECT_NE(later.ask("state").find("\"screen\":\"scene\""), std::string::npos) << "the start tab is lost";
    EXPECT_TRUE(later.tell("tab zone"));
    EXPECT_TRUE(later.tell("wait answer"));
    EXPECT_TRUE(later.tell("pick zonePicker 1"));
    const auto controls = later.controls();
    EXPECT_NE(controls.find("\"volumeSlider\":{\"kind\":\"slider\",\"value\":-33.0"), std::string::npos)
        << controls;
    EXPECT_NE(controls.find("\"loudnessSwitch\":{\"kind\":\"switch\",\"on\":true"), std::string::npos)
        << controls;
}

// Two people at once, one of them in advanced mode: in the end each sees what a newcomer sees.
TEST(EndToEnd, RemotesConvergeOnOneUnit) {
    const Folder folder;
    const Simulator unit;
    std::ofstream(folder / "advanced.json") << R"({"advanced_mode_preference": true})";
    std::ofstream(folder / "advanced-too.json") << R"({"advanced_mode_preference": true})";
    Remote normal(remoteCommand(unit.place(), folder / "normal.json"));
    Remote advanced(remoteCommand(unit.place(), folder / "advanced.json"));
    for (auto* remote : {&normal, &advanced}) {
        ASSERT_TRUE(remote->tell("wait open"));
        ASSERT_TRUE(remote->tell("wait answer"));
    }
    struct Action {
        Remote* remote;
        std::vector<const char*> commands;
    };
    const std::vector<Action> actions{
        {&normal, {"tab zone", "pick zonePicker 0", "slide volumeSlider -25"}},
        {&normal, {"tab zone", "switch muteSwitch toggle", "pick sourcePicker 4"}},
        {&normal, {"tab zone", "pick zonePicker 2", "slide bassSlider 6", "slide trebleSlider -4"}},
        {&normal, {"tab group", "pick groupPicker 1", "slide volumeSlider -41"}},
        {&normal, {"tab override", "switch ovrSwitch3 toggle"}},
        {&normal, {"tab scene", "pick scenePicker 1", "press saveSceneButton"}},
        {&advanced,
         {"tab output", "pick outputPicker 0", "slide volumeSlider -19", "switch muteSwitch toggle"}},
        {&advanced, {"tab output", "segment filterType2 5", "slide filterFreq2 2500", "slide filterGain2 4"}},
        {&advanced, {"tab output", "switch powerSwitch toggle"}},
        {&advanced, {"tab group", "pick groupPicker 0", "switch muteSwitch toggle"}},
        {&advanced, {"tab override", "switch ovrSwitch1 toggle"}},
        {&advanced, {"tab scene", "pick scenePicker 2", "press loadSceneButton"}},
    };
    std::mt19937 random(7);
    for (int step = 0; step < 60; ++step) {
        const auto& [remote, commands] = actions[random() % actions.size()];
        for (const auto* command : commands)
            remote->ask(command); // a control may be disabled at the moment
        if (step % 20 == 19) {
            normal.tell("wait 0.8");
            advanced.tell("wait 0.8");
        }
    }
    const auto compare = [](Remote& remote, Remote& newcomer, const std::string& tab,
                            const std::string& pick) {
        for (auto* each : {&remote, &newcomer}) {
            ASSERT_TRUE(each->tell("tab " + tab));
            ASSERT_TRUE(each->tell("wait answer"));
            if (!pick.empty()) {
                ASSERT_TRUE(each->tell(pick));
            }
        }
        EXPECT_EQ(remote.controls(), newcomer.controls()) << tab << " " << pick;
    };
    Remote newNormal(remoteCommand(unit.place(), folder / "normal-too.json"));
    Remote newAdvanced(remoteCommand(unit.place(), folder / "advanced-too.json"));
    ASSERT_TRUE(newNormal.tell("wait open"));
    ASSERT_TRUE(newAdvanced.tell("wait open"));
    compare(normal, newNormal, "zone", "pick zonePicker 0");
    compare(normal, newNormal, "zone", "pick zonePicker 2");
    compare(advanced, newAdvanced, "output", "pick outputPicker 0");
    for (auto* remote : {&normal, &advanced}) {
        compare(*remote, newNormal, "group", "pick groupPicker 0");
        compare(*remote, newNormal, "group", "pick groupPicker 1");
        compare(*remote, newNormal, "override", "");
        compare(*remote, newNormal, "scene", "pick scenePicker 0");
    }
}

TEST(EndToEnd, WithoutAUnitThereIsAnAlertThatNamesTheAddress) {
    const Folder folder;
    const ClosedPort nowhere;
    std::ofstream(folder / "a.json")
        << R"({"ip_address_preference": "10.1.2.3", "unit_number_preference": 2})";
    Remote remote(remoteCommand(nowhere.place(), folder / "a.json"));
    while (remote.events.empty() || remote.events.back().find("\"alert\"") == std::string::npos) {
        const auto line = remote.process.readLine();
        ASSERT_TRUE(line);
        remote.events.push_back(*line);
    }
    EXPECT_EQ(remote.events.back(),
              "{\"event\":\"alert\",\"title\":\"Error\",\"message\":\"Failed to connect to IP "
              "address 10.1.2.3.\",\"button\":\"OK\"}");
    EXPECT_NE(remote.ask("wait open 0.01").find("\"ok\":false"), std::string::npos);
    EXPECT_TRUE(remote.tell("dismiss"));
    remote.process.endInput();
    EXPECT_EQ(remote.process.wait(), 1) << "a command failed";
}

TEST(EndToEnd, UsageErrorsAreOneLine) {
    struct Case {
        std::vector<std::string> options;
        int status;
    };
    const Case cases[] = {
        {{"--fly"}, 2},
        {{"--fly", "--flap\nflop"}, 2},
        {{"zone"}, 2},
        {{"--console", "--demo", "--connect-to", "127.0.0.1:23"}, 2},
        {{"--console", "--connect-to", "127.0.0.1"}, 2},
        {{"--json"}, 2},
        {{"--help"}, 0},
        {{"--version"}, 0},
    };
    for (const auto& [options, status] : cases) {
        std::vector<std::string> command{REMOTE_PROGRAM};
        command.insert(command.end(), options.begin(), options.end());
        Process process(command);
        EXPECT_EQ(process.wait(), status) << options[0];
        const auto errors = process.errors();
        EXPECT_EQ(std::count(errors.begin(), errors.end(), '\n'), status == 0 ? 0 : 1) << errors;
        EXPECT_EQ(process.readLine().has_value(), status == 0) << options[0];
    }
}

TEST(EndToEnd, ADemoNeedsNothingAndLeavesNothing) {
    const Folder folder;
    const std::vector<std::string> environment{"HOME=" + (folder / "home"),
                                               "XDG_CONFIG_HOME=" + (folder / "config")};
    {
        Process demo({REMOTE_PROGRAM, "--console", "--demo"}, Process::Streams::Pipes, environment);
        demo.write("wait open\nwait answer\nset unit_number_preference 2\nstate\n");
        demo.endInput();
        EXPECT_TRUE(demo.readUntil("zone screen, link open"));
        EXPECT_EQ(demo.wait(), 0);
        EXPECT_FALSE(fs::exists(folder / "config") || fs::exists(folder / "home"));
    }
    {
        std::ofstream(folder / "third.json")
            << R"({"ip_address_preference": "10.1.2.3", "unit_number_preference": 3})";
        Remote demo({REMOTE_PROGRAM, "--console", "--json", "--demo", "--settings", folder / "third.json"});
        EXPECT_TRUE(demo.tell("wait open"));
        EXPECT_TRUE(demo.tell("wait answer")) << "the demo's unit does not answer to the stored number";
    }
    const ClosedPort nowhere;
    Process own({REMOTE_PROGRAM, "--console", "--connect-to", nowhere.place()}, Process::Streams::Pipes,
                environment);
    own.endInput();
    EXPECT_EQ(own.wait(), 0);
    EXPECT_TRUE(fs::exists(folder / "config/lumbra-remote/settings.json"));
}

TEST(EndToEnd, AFloodOfReportsHoldsUpNobody) {
    const Folder folder;
    const Simulator unit({"--flood", "0"});
    Remote remote(remoteCommand(unit.place(), folder / "a.json"));
    ASSERT_TRUE(remote.tell("wait open"));
    for (const auto* command :
         {"wait 0.2", "state", "switch muteSwitch toggle", "tab group", "wait 0.05", "tab scene",
          "pick scenePicker 1", "press loadSceneButton", "app away", "wait closed", "quit"})
        EXPECT_TRUE(remote.tell(command));
    EXPECT_EQ(remote.process.wait(), 0);
}

TEST(EndToEnd, SettingsAreWholeWheneverItIsKilled) {
    const Folder folder;
    const ClosedPort nowhere;
    for (int round = 1; round <= 4; ++round) {
        {
            Remote remote(remoteCommand(nowhere.place(), folder / "a.json"));
            EXPECT_TRUE(remote.tell("set unit_number_preference " + std::to_string(round)));
            std::string storm;
            for (int i = 0; i < 500; ++i)
                storm += "set start_tab_preference " + std::to_string(i) + "\n";
            remote.process.write(storm);
            for (int i = 0; i < round * 5; ++i)
                remote.ask("# the next reply of the storm");
            remote.process.signal(SIGKILL);
            EXPECT_EQ(remote.process.wait(), -SIGKILL);
        }
        Remote later(remoteCommand(nowhere.place(), folder / "a.json"));
        EXPECT_NE(later.ask("get").find("\"unit_number_preference\":" + std::to_string(round) + ","),
                  std::string::npos);
        later.process.signal(SIGTERM);
        EXPECT_EQ(later.process.wait(), 0);
        EXPECT_EQ(later.process.errors(), "");
    }
}

// What ends while the connect is still under way on the worker must not take away what the worker uses.
TEST(EndToEnd, QuitsAtOnce) {
    for (int run = 0; run < 40; ++run) {
        Process remote({REMOTE_PROGRAM, "--console", "--demo"});
        remote.write(run % 2 == 0 ? "quit\n" : "wait open\napp away\nquit\n");
        remote.endInput();
        ASSERT_EQ(remote.wait(), 0);
    }
}

// Unreadable settings are told on standard error; where nobody reads it any more, that is no reason to end.
TEST(EndToEnd, AReaderThatHasGoneEndsNothing) {
    const Folder folder;
    std::ofstream(folder / "a.json") << "rubbish";
    Process remote({"/bin/sh", "-c", "mkfifo \"$0\"; exec 3<>\"$0\" 2>\"$0\" 3<&-; exec \"$@\"",
                    folder / "nobody", REMOTE_PROGRAM, "--console", "--demo", "--settings",
                    folder / "a.json"});
    remote.write("get serial_port_preference\n");
    remote.endInput();
    EXPECT_EQ(remote.wait(), 0);
}

TEST(Build, IsHardened) {
    if (!std::string_view(LUMBRA_SANITIZE).empty())
        GTEST_SKIP() << "sanitizers take the place of these checks";
    for (const auto* file : {REMOTE_PROGRAM, SIMULATOR_PROGRAM, TOUCH_MODULE}) {
        Process readelf({"/usr/bin/readelf", "-hdlW", "--dyn-syms", file});
        std::string text;
        while (const auto line = readelf.readLine())
            text += *line + "\n";
        for (const auto* mark : {"DYN (", "GNU_RELRO", "BIND_NOW", "__stack_chk_fail", "_chk@"})
            EXPECT_NE(text.find(mark), std::string::npos) << file << " lacks " << mark;
    }
}

// Without a handler a signal would end the window with its settings unwritten and its status a failure.
TEST(EndToEnd, ASignalEndsTheWindowAsClosingItDoes) {
    const Folder folder;
    Simulator unit({"--verbose"});
    Process window({REMOTE_PROGRAM, "--connect-to", unit.place(), "--settings", folder / "a.json"},
                   Process::Streams::Pipes, {"QT_QPA_PLATFORM=offscreen"});
    ASSERT_TRUE(unit.tells("! connected"));
    window.signal(SIGTERM);
    EXPECT_EQ(window.wait(), 0);
    EXPECT_EQ(window.errors(), "");
    EXPECT_TRUE(unit.tells("! closed by the client"));
    EXPECT_TRUE(fs::exists(folder / "a.json"));
}

TEST(EndToEnd, AClosedOutputStopsNoCommand) {
    const Folder folder;
    const Simulator unit;
    {
        Process remote(remoteCommand(unit.place(), folder / "a.json"));
        remote.closeOutput();
        remote.write(
            "wait open\nwait answer\nswitch muteSwitch on\nwait 0.2\nset serial_port_preference true\n");
        remote.endInput();
        EXPECT_EQ(remote.wait(), 0);
        EXPECT_EQ(remote.errors(), "");
    }
    Remote later(remoteCommand(unit.place(), folder / "a.json"));
    EXPECT_TRUE(later.tell("wait open"));
    EXPECT_TRUE(later.tell("wait answer"));
    EXPECT_NE(later.controls().find("\"muteSwitch\":{\"kind\":\"switch\",\"on\":true"), std::string::npos);
    EXPECT_NE(later.ask("get serial_port_preference").find(":true}}"), std::string::npos);
}

// A line that is being typed survives what is printed meanwhile, and an error is no failure at a terminal.
TEST(EndToEnd, ATerminalHasAPromptAndEditing) {
    if (::access("/dev/pts/ptmx", F_OK) != 0)
        GTEST_SKIP() << "this system has no pseudo-terminals";
    const Folder folder;
    const Simulator unit;
    Process person(
        {REMOTE_PROGRAM, "--console", "--connect-to", unit.place(), "--settings", folder / "a.json"},
        Process::Streams::Terminal, {"TERM=xterm", "LC_ALL=C.UTF-8"});
    ASSERT_TRUE(person.readUntil("spinner: stopped"));
    ASSERT_TRUE(person.readUntil("zone> "));
    person.write("sta");
    ASSERT_TRUE(person.readUntil("sta"));
    {
        Remote other(remoteCommand(unit.place(), folder / "b.json"));
        ASSERT_TRUE(other.tell("wait open"));
        ASSERT_TRUE(other.tell("wait answer"));
        ASSERT_TRUE(other.tell("switch muteSwitch on"));
    }
    ASSERT_TRUE(person.readUntil("muteSwitch: on\r\n"));
    ASSERT_TRUE(person.readUntil("zone> sta"));
    person.write("\t\n");
    ASSERT_TRUE(person.readUntil("zone screen, link open"));
    ASSERT_TRUE(person.readUntil("zone> "));
    person.write("tab sc\t\n");
    ASSERT_TRUE(person.readUntil("scene> "));
    person.write("fly\n");
    ASSERT_TRUE(person.readUntil("error: fly"));
    ASSERT_TRUE(person.readUntil("scene> "));
    person.write("\x04");
    EXPECT_EQ(person.wait(), 0);
}

} // namespace

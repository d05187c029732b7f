#include "Loopback.h"
#include "Simulator.h"

#include <algorithm>
#include <fstream>

namespace {

using namespace lumbra;
namespace fs = std::filesystem;

/// A remote under a script: gives commands and takes their replies; events are set aside.
class Remote : public Process {
public:
    explicit Remote(std::vector<std::string> options)
        : Process((options.insert(options.begin(), {REMOTE_PROGRAM, "--console", "--json"}), options)) {}
    Remote(const Simulator& unit, const std::string& settings)
        : Remote({"--connect-to", unit.place(), "--settings", settings}) {}

    /// The reply, as one line; an empty text when none comes.
    std::string ask(const std::string& command) {
        write(command + "\n");
        while (const auto line = readLine()) {
            if (line->starts_with("{\"reply\":"))
                return *line;
            events.push_back(*line);
        }
        return {};
    }
    /// The first of `commands` that fails, with its reply; empty where all succeed.
    std::string failure(const std::vector<std::string>& commands) {
        for (const auto& command : commands)
            if (const auto reply = ask(command); reply.find("\"ok\":true") == std::string::npos)
                return std::string(command).append(": ").append(reply);
        return {};
    }
    /// Gives `command`, and looks for `text` in its reply.
    ::testing::AssertionResult answers(const std::string& command, const std::string& text) {
        const auto reply = ask(command);
        return ::testing::AssertionResult(reply.find(text) != std::string::npos) << command << ": " << reply;
    }

    std::vector<std::string> events;
};

TEST(EndToEnd, ARemoteShowsAndMovesTheUnit) {
    const Folder folder;
    const Simulator unit;
    {
        Remote remote(unit, folder / "a.json");
        EXPECT_EQ(remote.failure({"wait open", "wait answer"}), "");
        EXPECT_TRUE(remote.answers("state", "\"Living Room\""));
        EXPECT_EQ(remote.failure({"pick zonePicker 1", "slide volumeSlider -33.3", "switch loudnessSwitch on",
                                  "wait 0.8", "tab scene", "wait answer", "quit"}),
                  "");
        EXPECT_EQ(remote.wait(), 0);
        EXPECT_EQ(remote.errors(), "");
        EXPECT_EQ(remote.events.front(),
                  "{\"event\":\"screen\",\"screen\":\"zone\",\"tabs\":[\"zone\",\"group\","
                  "\"override\",\"scene\"],\"selected\":0}");
    }
    Remote later(unit, folder / "a.json");
    EXPECT_EQ(later.failure({"wait open"}), "");
    EXPECT_TRUE(later.answers("state", "\"screen\":\"scene\"")) << "the start tab is lost";
    EXPECT_EQ(later.failure({"tab zone", "wait answer", "pick zonePicker 1"}), "");
    EXPECT_TRUE(later.answers("state", "\"volumeSlider\":{\"kind\":\"slider\",\"value\":-33.0"));
    EXPECT_TRUE(later.answers("state", "\"loudnessSwitch\":{\"kind\":\"switch\",\"on\":true"));
}

TEST(EndToEnd, WhatIsWrongWithTheOptionsIsToldInOneLine) {
    const Folder folder;
    const auto empty = folder / "empty.jsonl";
    std::ofstream(empty) << "{\"trace\":1}\n";
    const std::tuple<int, std::string, std::vector<std::string>> cases[] = {
        {2, "fly", {REMOTE_PROGRAM, "--fly", "--flap\nflop"}},
        {0, "", {REMOTE_PROGRAM, "--help"}},
        {2, "--port takes a whole number from 0 to 65535", {SIMULATOR_PROGRAM, "--port", "65536"}},
        {2, "--listen takes an IP address, not \"kitchen\"", {SIMULATOR_PROGRAM, "--listen", "kitchen"}},
        {2, "exclude each other", {SIMULATOR_PROGRAM, "--reset-after", "1", "--end-after", "2"}},
        {1, "Can't listen on 192.0.2.1:0: ", {SIMULATOR_PROGRAM, "--listen", "192.0.2.1"}},
        {1, "can't be set aside", {SIMULATOR_PROGRAM, "--state", "/proc/version"}},
        {1, "/nowhere/a: No such file", {REMOTE_PROGRAM, "--console", "--demo", "--trace", "/nowhere/a"}},
        {1, "no trace that can be read. Line 1 ", {SIMULATOR_PROGRAM, "--replay", "/proc/version"}},
        {1, "no link was opened", {SIMULATOR_PROGRAM, "--replay", empty}},
        {2, "--replay goes with", {SIMULATOR_PROGRAM, "--replay", empty, "--silence"}},
        {0, "", {SIMULATOR_PROGRAM, "--help"}}};
    for (const auto& [status, says, command] : cases) {
        Process process(command);
        EXPECT_EQ(process.wait(), status) << command[1];
        const auto& errors = process.errors();
        EXPECT_NE(errors.find(says), std::string::npos) << errors;
        EXPECT_EQ(std::count(errors.begin(), errors.end(), '\n'), status == 0 ? 0 : 1) << errors;
        EXPECT_EQ(process.rest().empty(), status != 0) << command[1];
    }
}

// A killed program has traced what it has shown, and a remote that does the same hears the same.
TEST(EndToEnd, ATraceIsPlayedBack) {
    const Folder folder;
    const auto file = folder / "a.jsonl";
    const std::vector<std::string> script{
        "wait open",   "wait answer", "pick zonePicker 3", "switch muteSwitch toggle", "tab scene",
        "wait answer", "state"};
    std::string shown, head;
    {
        const Simulator unit;
        Remote remote({"--connect-to", unit.place(), "--settings", folder / "a.json", "--trace", file});
        EXPECT_EQ(remote.failure(script), "");
        shown = remote.ask("state");
        remote.signal(SIGKILL);
    }
    std::getline(std::ifstream(file), head);
    EXPECT_NE(head.find("\"--console --json --connect-to"), std::string::npos) << head;
    Simulator unit({"--replay", file});
    Remote remote({"--connect-to", unit.place(), "--settings", folder / "b.json", "--trace", "/dev/full"});
    EXPECT_EQ(remote.failure(script), "");
    EXPECT_EQ(remote.ask("state"), shown);
    remote.endInput();
    EXPECT_EQ(remote.wait(), 0);
    EXPECT_EQ(remote.errors(), "lumbra-remote: The trace in /dev/full ends here: No space left on device.\n");
    EXPECT_EQ(unit.readUntil("! closed"), "1 ! connected\n1 ! closed");
    EXPECT_EQ(unit.readLine(), ", all is played");
}

TEST(EndToEnd, ADemoNeedsNothingAndLeavesNothing) {
    const Folder folder;
    const auto start = [&](std::vector<std::string> options, const char* script) {
        options.insert(options.begin(),
                       {"/usr/bin/env", "HOME=" + (folder / "home"), "XDG_CONFIG_HOME=" + (folder / "config"),
                        REMOTE_PROGRAM, "--console"});
        Process remote(options);
        remote.write(script);
        remote.endInput();
        EXPECT_EQ(remote.wait(), 0) << "a command failed";
        return remote.rest();
    };
    const auto printed = start({"--demo"}, "wait open\nwait answer\nset unit_number_preference 2\nstate\n");
    EXPECT_NE(printed.find("zone screen, link open"), std::string::npos);
    EXPECT_FALSE(fs::exists(folder / "config") || fs::exists(folder / "home"));
    std::ofstream(folder / "third.json")
        << R"({"ip_address_preference":"10.1.2.3","unit_number_preference":3})";
    // The demo's unit answers to the stored number.
    start({"--demo", "--settings", folder / "third.json"}, "wait open\nwait answer\n");
    const Listener nowhere{-1};
    start({"--connect-to", nowhere.place()}, "");
    EXPECT_TRUE(fs::exists(folder / "config/lumbra-remote/settings.json"));
}

TEST(EndToEnd, WhatAReplySaysIsKeptHoweverItEnds) {
    const Folder folder;
    std::string storm;
    for (int i = 0; i < 500; ++i)
        storm += "set start_tab_preference " + std::to_string(i) + "\n";
    for (int round = 1; round <= 4; ++round) {
        Remote remote({"--demo", "--settings", folder / "a.json"});
        EXPECT_TRUE(remote.answers("get", "\"unit_number_preference\":" + std::to_string(round) + ","));
        EXPECT_EQ(remote.failure({"set unit_number_preference " + std::to_string(round + 1)}), "");
        remote.write(storm);
        for (int i = 0; i < round * 5; ++i)
            remote.ask("# the next reply of the storm");
        const int signal = round == 4 ? SIGTERM : round == 3 ? SIGHUP : SIGKILL;
        remote.signal(signal);
        EXPECT_EQ(remote.wait(), signal == SIGKILL ? -SIGKILL : 0);
        EXPECT_EQ(remote.errors(), "");
    }
}

// What ends while the connect is still under way on the worker must not take away what the worker uses.
TEST(EndToEnd, QuitsAtOnce) {
    for (int run = 0; run < 40; ++run) {
        Process remote({REMOTE_PROGRAM, "--console", "--demo"});
        remote.write(run % 2 == 0 ? "quit\n" : "wait open\napp away\nquit\n");
        ASSERT_EQ(remote.wait(), 0);
    }
}

// Unreadable settings are told on standard error. Where nobody reads it or the replies, no command is stopped.
TEST(EndToEnd, ReadersThatHaveGoneEndNothing) {
    const Folder folder;
    const Simulator unit;
    std::ofstream(folder / "a.json") << "rubbish";
    Process remote({"/bin/sh", "-c", "mkfifo \"$0\"; exec 3<>\"$0\" 2>\"$0\" 3<&-; exec \"$@\"",
                    folder / "nobody", REMOTE_PROGRAM, "--console", "--connect-to", unit.place(),
                    "--settings", folder / "a.json"});
    remote.closeOutput();
    remote.write("wait open\nswitch muteSwitch on\nwait 0.2\nset serial_port_preference true\n");
    remote.endInput();
    EXPECT_EQ(remote.wait(), 0);
    Remote later(unit, folder / "a.json");
    EXPECT_EQ(later.failure({"wait open", "wait answer"}), "");
    EXPECT_TRUE(later.answers("state", "\"muteSwitch\":{\"kind\":\"switch\",\"on\":true"));
    EXPECT_TRUE(later.answers("get serial_port_preference", ":true}}"));
}

TEST(Build, IsHardened) {
    if (!std::string_view(LUMBRA_SANITIZE).empty())
        GTEST_SKIP() << "sanitizers take the place of these checks";
    for (const auto* file : {REMOTE_PROGRAM, SIMULATOR_PROGRAM, TOUCH_MODULE}) {
        const auto text = Process({"/usr/bin/readelf", "-hdlW", "--dyn-syms", file}).rest();
        for (const auto* mark : {"DYN (", "GNU_RELRO", "BIND_NOW", "__stack_chk_fail", "_chk@"})
            EXPECT_NE(text.find(mark), std::string::npos) << file << " lacks " << mark;
    }
}

// A line that is being typed survives what is printed meanwhile, and an error is no failure at a terminal.
TEST(EndToEnd, ATerminalHasAPromptAndEditing) {
    if (::access("/dev/pts/ptmx", F_OK) != 0)
        GTEST_SKIP() << "this system has no pseudo-terminals";
    const Folder folder;
    const Simulator unit;
    const std::vector<std::string> command{
        "/usr/bin/env", "--ignore-signal=HUP", "TERM=xterm", "LC_ALL=C.UTF-8", REMOTE_PROGRAM,
        "--console",    "--connect-to",        unit.place(), "--settings",     folder / "a.json"};
    {
        Process person(command, Process::Streams::Terminal);
        Remote other(unit, folder / "b.json");
        ASSERT_EQ(other.failure({"wait open", "wait answer"}), "");
        ASSERT_TRUE(person.readUntil("spinner: stopped") && person.readUntil("zone> "));
        // What is typed in all, in a terminal of 60 columns; the rows above the cursor that printing takes away.
        std::string typed;
        for (int count = 0; count < 26; ++count)
            typed += "\u00fc";
        for (const auto& [more, rows] :
             {std::pair(typed + "q", ""), {std::string(40, 'x') + "q", "\x1b[1A"}}) {
            person.write(more);
            ASSERT_TRUE(person.readUntil(more.substr(more.size() - 3)));
            ASSERT_EQ(other.failure({"switch muteSwitch toggle"}), "");
            const auto printed = person.readUntil("muteSwitch: o").value_or("");
            EXPECT_NE(printed.find(std::string(rows) + "\r\x1b[J"), std::string::npos) << printed;
            EXPECT_EQ(printed.find("\x1b[1A") != std::string::npos, *rows != '\0') << printed;
            ASSERT_TRUE(person.readUntil("zone> " + typed.substr(0, 20)));
        }
        // ^U takes the line away.
        for (const auto& [line, printed, prompt] :
             {std::tuple("\x15sta\t\n", "zone screen, link open", "zone> "),
              {"tab sc\t\n", "", "scene> "},
              {"fly\n", "error: fly", "scene> "}}) {
            person.write(line);
            ASSERT_TRUE(person.readUntil(printed) && person.readUntil(prompt)) << line;
        }
        person.write("\x04");
        EXPECT_EQ(person.wait(), 0);
    }
    Process left(command, Process::Streams::Terminal);
    ASSERT_TRUE(left.readUntil("scene> "));
    left.endInput();
    left.closeOutput();
    EXPECT_EQ(left.wait(), 0) << "the terminal has gone";
}

} // namespace

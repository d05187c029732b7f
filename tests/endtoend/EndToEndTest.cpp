#include "Loopback.h"
#include "Simulator.h"

#include <algorithm>
#include <fstream>

namespace {

using namespace lumbra;
namespace fs = std::filesystem;

/// Pipes a whole script into a console: its output, then its errors, and its status unless that is 0.
std::string run(std::vector<std::string> options, const std::string& script) {
    options.insert(options.begin(), {REMOTE_PROGRAM, "--console", "--json"});
    Process remote(options);
    remote.write(script);
    remote.endInput();
    const int status = remote.wait();
    return remote.rest() + remote.errors() + (status == 0 ? "" : "status " + std::to_string(status));
}

void expectEach(const std::string& text, const std::vector<std::string>& parts) {
    for (const auto& part : parts)
        EXPECT_NE(text.find(part), std::string::npos) << part << " is not in " << text;
    EXPECT_EQ(text.find("status "), std::string::npos) << text;
}

TEST(EndToEnd, WhatIsWrongWithTheOptionsIsToldInOneLine) {
    const Folder folder;
    const auto empty = folder / "empty.jsonl";
    std::ofstream(empty) << "{\"trace\":1}\n";
    const auto window = [](const char* limit, const std::string& program, const std::string& more) {
        return std::vector<std::string>{
            "/bin/sh", "-c", std::string(limit) + "; export QT_QPA_PLATFORM=offscreen; exec \"$0\" " + more,
            program};
    };
    fs::copy(REMOTE_PROGRAM, folder / "alone");
    const std::tuple<int, std::string, std::vector<std::string>> cases[] = {
        {1, "too few file descriptors; see", window("ulimit -n 14", REMOTE_PROGRAM, "--console --demo")},
        {1, "--console needs less", window("ulimit -n 40", REMOTE_PROGRAM, "--demo")},
        {1, "The touch screens can't be loaded", window(":", folder / "alone", "--demo")},
        {1, "/nowhere/a: No such file",
         window(":", REMOTE_PROGRAM, "--trace /nowhere/a --settings " + folder / "none")},
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
        {2, "--replay and --silence exclude", {SIMULATOR_PROGRAM, "--replay", empty, "--silence"}},
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
    const auto start = [&](const Simulator& unit, const char* settings, const std::string& trace) {
        auto remote = std::make_unique<Process>(
            std::vector<std::string>{REMOTE_PROGRAM, "--console", "--json", "--connect-to", unit.place(),
                                     "--settings", folder / settings, "--trace", trace});
        remote->write("wait open\nwait answer\npick zonePicker 3\nswitch muteSwitch toggle\ntab scene\n"
                      "wait answer\nstate\n");
        return remote;
    };
    const std::string state = "{\"reply\":\"state\",\"ok\":true", end = "\"address\":\"127.0.0.1:";
    for (const auto* settings : {"a.json", "b.json"})
        std::ofstream(folder / settings)
            << R"({"ip_address_preference":"10.1.2.3","unit_number_preference":1,"polling_preference":true})";
    std::string shown, head;
    {
        const Simulator unit;
        const auto remote = start(unit, "a.json", file);
        shown = remote->readUntil(state) ? remote->readUntil(end).value_or("none") : "";
        remote->signal(SIGKILL);
    }
    std::getline(std::ifstream(file), head);
    expectEach(head, {"\"--console --json --connect-to 127.0.0.1:",
                      ",\"settings\":{\"polling_preference\":true,\"unit_number_preference\":1}}"});
    Simulator unit({"--replay", file});
    const auto remote = start(unit, "b.json", "/dev/full");
    EXPECT_TRUE(remote->readUntil(state) && remote->readUntil(end) == shown);
    remote->endInput();
    EXPECT_EQ(remote->wait(), 0);
    EXPECT_EQ(remote->errors(),
              "lumbra-remote: The trace in /dev/full ends here: No space left on device.\n");
    EXPECT_EQ(unit.readUntil("! closed"), "1 ! connected\n1 ! closed");
    EXPECT_EQ(unit.readLine(), ", all is played");
}

TEST(EndToEnd, ADemoNeedsNothingAndLeavesNothing) {
    const Folder folder;
    ::setenv("HOME", (folder / "home").c_str(), 1);
    ::setenv("XDG_CONFIG_HOME", (folder / "config").c_str(), 1);
    expectEach(run({"--demo"}, "wait open\nwait answer\nset unit_number_preference 2\nstate\n"),
               {"\"link\":\"open\""});
    EXPECT_FALSE(fs::exists(folder / "config") || fs::exists(folder / "home"));
    std::ofstream(folder / "third.json")
        << R"({"ip_address_preference":"10.1.2.3","unit_number_preference":3})";
    // The demo's unit answers to the stored number.
    expectEach(run({"--demo", "--settings", folder / "third.json"}, "wait open\nwait answer\n"), {});
    const Listener nowhere{-1};
    run({"--connect-to", nowhere.place()}, "");
    EXPECT_TRUE(fs::exists(folder / "config/lumbra-remote/settings.json"));
}

TEST(EndToEnd, WhatAReplySaysIsKeptHoweverItEnds) {
    const Folder folder;
    std::string storm;
    for (int i = 0; i < 500; ++i)
        storm += "set start_tab_preference " + std::to_string(i) + "\n";
    for (int round = 1; round <= 4; ++round) {
        Process remote({REMOTE_PROGRAM, "--console", "--demo", "--settings", folder / "a.json"});
        remote.write("get unit_number_preference\nset unit_number_preference " + std::to_string(round + 1) +
                     "\n" + storm);
        EXPECT_TRUE(remote.readUntil("  unit_number_preference  " + std::to_string(round) + "\n"));
        for (int i = 0; i < round * 5; ++i)
            remote.readUntil("ok\n");
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
    expectEach(run({"--connect-to", unit.place(), "--settings", folder / "a.json"},
                   "wait open\nwait answer\nstate\nget serial_port_preference\n"),
               {"\"muteSwitch\":{\"kind\":\"switch\",\"on\":true", ":true}}"});
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
    const auto command = [&](const char* terminal) {
        return std::vector<std::string>{
            "/usr/bin/env", "--ignore-signal=HUP", terminal,     "LC_ALL=C.UTF-8", REMOTE_PROGRAM,
            "--console",    "--connect-to",        unit.place(), "--settings",     folder / "a.json"};
    };
    {
        Process person(command("TERM=xterm"), Process::Streams::Terminal);
        Peer other(connectTo(static_cast<std::uint16_t>(std::stoi(unit.port()))));
        ASSERT_TRUE(person.readUntil("spinner: stopped") && person.readUntil("zone> "));
        // What is typed in all, in a terminal of 60 columns; the rows above the cursor that printing takes away.
        std::string typed;
        for (int count = 0; count < 26; ++count)
            typed += "\u00fc";
        for (const auto& [more, rows, toggle] :
             {std::tuple(typed + "q", "", "[U1Z1M1]"), {std::string(40, 'x') + "q", "\x1b[1A", "[U1Z1M0]"}}) {
            person.write(more);
            ASSERT_TRUE(person.readUntil(more.substr(more.size() - 3)));
            other.send(toggle);
            const auto printed = person.readUntil("muteSwitch: o").value_or("");
            EXPECT_NE(printed.find(std::string(rows) + "\r\x1b[J"), std::string::npos) << printed;
            EXPECT_EQ(printed.find("A\r\x1b[J") != std::string::npos, *rows != '\0') << printed;
            ASSERT_TRUE(person.readUntil("zone> " + typed.substr(0, 20)));
        }
        person.signal(SIGCONT); // a shell that has brought it back may have cleared the line
        ASSERT_TRUE(person.readUntil("zone> " + typed.substr(0, 20)));
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
    Process dumb(command("TERM=dumb"), Process::Streams::Terminal);
    dumb.write("quit\n");
    EXPECT_EQ(dumb.readUntil("ok\r\n").value_or("\x1b").find('\x1b'), std::string::npos)
        << "it edits no lines";
    Process left(command("TERM=xterm"), Process::Streams::Terminal);
    ASSERT_TRUE(left.readUntil("scene> "));
    left.endInput();
    left.closeOutput();
    EXPECT_EQ(left.wait(), 0) << "the terminal has gone";
    // One that is stopped, and one that takes no more, hold nothing up.
    for (const auto* stop : {"\x13", ""}) {
        Process stuck(command("TERM=xterm"), Process::Streams::Terminal);
        Peer other(connectTo(static_cast<std::uint16_t>(std::stoi(unit.port()))));
        ASSERT_TRUE(stuck.readUntil("> "));
        std::string commands = stop;
        for (int count = 0; count < 100; ++count)
            commands += "state\n";
        stuck.write(commands + "tab zone\nswitch loudnessSwitch toggle\n");
        EXPECT_TRUE(other.receives("Z1LD"));
        stuck.signal(SIGTERM);
        EXPECT_EQ(stuck.wait(), 0);
    }
}

} // namespace

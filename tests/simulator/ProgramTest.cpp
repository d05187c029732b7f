#include "Loopback.h"
#include "Simulator.h"

#include <fstream>

namespace lumbra::sim::test {

/// True if the unit answers `commands` with something that holds `last`.
bool answers(const Simulator& unit, const std::string& commands, const std::string& last) {
    Peer client(connectTo(static_cast<std::uint16_t>(std::stoi(unit.port()))));
    client.send(commands);
    return client.receives(last);
}

TEST(Program, keepsItsStateFromRunToRunAndPrintsWhatItDoes) {
    const Folder folder;
    const auto file = folder / "state";
    const auto run = [&](const std::string& commands, const char* last, int signal) {
        Simulator program({"--verbose", "--unit", "3", "--state", file});
        EXPECT_TRUE(program.ready().starts_with("Simulated unit 3 listens on 127.0.0.1:"));
        EXPECT_TRUE(answers(program, commands, last)) << commands;
        program.signal(signal);
        EXPECT_EQ(program.wait(), 0);
        return program.rest() + program.errors();
    };
    const auto printed = run("[U3Z1\x01][U3AO9A2][U3Z16V-7]", "(U3Z16V-7)", SIGTERM);
    for (const char* const text :
         {" ! connected\n", " > [U3Z1\\x01] refused\n", " > [U3Z16V-7]\n", " < (U3Z16V-7)\n",
          "Commands: 2 carried out, 1 refused, 0 for other units\n"})
        EXPECT_NE(printed.find(text), std::string::npos) << text << printed;
    run("[U3Z15V-7][U3APPQ3]", "(U3AO9A1)", SIGHUP);
    EXPECT_EQ(run("[U3APPQ0]", "(U3Z15V-7)", SIGINT).find("state"), std::string::npos);
    std::filesystem::resize_file(file, 9);
    EXPECT_NE(run("[U3APPQ3]", "(U3AO9A0)", SIGTERM).find("It is kept as"), std::string::npos);
}

TEST(Program, servesAndEndsWhoeverReadsItsOutput) {
    for (const bool gone : {false, true}) {
        Simulator program({"--verbose"});
        if (gone)
            program.closeOutput();
        // Their trace is far more than a pipe takes.
        std::string commands = "[U1APPQ3]";
        for (int turn = 0; turn < 30; ++turn)
            commands.insert(0, "[U1APPQ1]");
        EXPECT_TRUE(answers(program, commands, "(U1APPQ3)"));
        program.signal(SIGTERM);
        EXPECT_EQ(program.wait(), 0);
    }
}

// What a remote sends, what it gets, and what is printed. One pause lasts a month, which is more than a timer can count.
// The last command is longer than what is read at a time, and bytes follow the reset in the trace.
TEST(Program, playsATraceBack) {
    const Folder folder;
    const std::string longCommand(70'000, 'x');
    std::ofstream(folder / "trace") << R"-({"trace":1}
{"time":0,"link":1,"event":"attempt","host":"a","port":23}
{"time":1,"link":1,"event":"error"}
{"time":2,"link":2,"event":"attempt","host":"a","port":23}
{"time":2,"link":2,"event":"opened"}
{"time":2,"link":2,"received":"(0\u00e9)"}
{"time":2,"link":2,"sent":"[U1","not_sent":"A]"}
{"time":2,"link":2,"received":"(1)"}
{"step":"tab group"}
{"time":2,"link":2,"sent":"[U1B]"}
{"time":2592002,"link":2,"received":"(2)"}
{"time":2592002,"link":2,"sent":"[U1C]"}
{"time":2592002,"link":2,"event":"end"}
{"time":2592002,"link":2,"event":"closed"}
{"time":2592002,"link":3,"event":"attempt","host":"a","port":23}
{"time":2592002,"link":3,"event":"opened"}
{"time":2592002,"link":3,"received":"(3)"}
{"time":2592002,"link":3,"sent":")-" << longCommand
                                    << R"-("}
{"time":2592002,"link":3,"event":"error"}
{"time":2592002,"link":3,"received":"(4)"}
)-";
    const std::tuple<const char*, const char*, const char*, bool> rows[] = {
        {"[U1A][U1B][U1C]", "(0\xe9)(1)(2)FIN", "1 ! closed, all is played", true},
        {"[U1A][U1B]", "(0\xe9)(1)", "1 ! closed by the remote, 3 lines of the trace are left (line 11)",
         false},
        {"[U1A][U1B]", "(0\xe9)(1)", "1 ! pauses for 2592000 s (line 11)", false},
        {"", "(0\xe9)", "1 ! waits for [U1A] (line 7)", true},
        {"[U1X][U1B]", "(0\xe9)(1)(2)", "1 ? expected [U1A], got [U1X] (line 7)", true},
        {"[U1B]", "(0\xe9)(1)(2)", "1 ? expected [U1A], which was left out (line 7)", true},
        {"[U1\x01][U1A][U1B][U1C][U1D]", "(0\xe9)(1)(2)FIN", "1 ? expected nothing more, got [U1D]", true},
        {"[U1X][U1A]", "(0\xe9)(1)", "1 ? got [U1A] late", true},
    };
    for (const auto& [sends, gets, told, fast] : rows) {
        std::vector<std::string> options{"--replay", folder / "trace"};
        if (fast)
            options.emplace_back("--fast");
        Simulator program(options);
        const auto port = static_cast<std::uint16_t>(std::stoi(program.port()));
        Peer client(connectTo(port));
        client.send(sends);
        EXPECT_TRUE(client.receives(gets)) << sends << " got " << client.received();
        EXPECT_EQ(client.received(), gets) << sends;
        if (!std::string_view(told).starts_with("1 ! waits") &&
            !std::string_view(told).starts_with("1 ! pauses"))
            client.close();
        EXPECT_TRUE(program.readUntil(std::string(told) + "\n")) << told;
        if (fast) {
            Peer second(connectTo(port)), third(connectTo(port));
            second.send(longCommand);
            EXPECT_TRUE(second.receives("(3)RST") && third.receives("FIN")) << second.received();
        }
        program.signal(SIGTERM);
        EXPECT_EQ(program.errors(), "");
    }
}

} // namespace lumbra::sim::test

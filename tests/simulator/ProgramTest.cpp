#include "Loopback.h"
#include "Simulator.h"

namespace lumbra::sim {

namespace {

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

} // namespace
} // namespace lumbra::sim

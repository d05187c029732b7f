#include "simulator/Unit.h"

#include "Mirror.h"

#include <gtest/gtest.h>

#include <random>
#include <set>
#include <sstream>

namespace lumbra::sim {

namespace {

std::string joined(const std::vector<std::string>& texts) {
    std::string all;
    for (const std::string& text : texts)
        all += text;
    return all;
}

/// Carries out commands divided by blanks; gives the reports of the last.
std::string lastReports(Unit& unit, const std::string& commands) {
    std::istringstream words(commands);
    std::string body;
    Response response;
    while (words >> body)
        response = unit.execute(body);
    return joined(response.reports);
}

TEST(Unit, reportsWhatACommandLeadsTo) {
    struct Case {
        const char* commands;
        const char* reports; ///< of the last command
    };
    const Case CASES[] = {
        // A zone, and the outputs that it leads.
        {"Z3V-35", "(U1Z3V-35)(U1O4V-35)"},
        {"Z3V-44", "(U1Z3V-44)"},
        {"Z1V-30", "(U1Z1V-30)(U1O1V-30)(U1O2V-30)"},
        {"Z3V-80", "(U1Z3V-80)(U1O4V-80)"},
        {"Z16V0", "(U1Z16V0)"},
        {"Z3I20", "(U1Z3I20)(U1O4I20)"},
        {"Z3I4", "(U1Z3I4)"},
        {"Z3M1", "(U1Z3M1)(U1O4M1)"},
        {"Z3M0", "(U1Z3M0)"},
        {"Z3LD0", "(U1Z3LD0)"},
        {"Z3BASS-15", "(U1Z3BASS-15)"},
        {"Z3TREB15", "(U1Z3TREB15)"},
        // Volumes are held to the maximum of whatever takes them, and unmute it.
        {"Z4V0", "(U1Z4V-20)(U1O5V-20)"},
        {"Z1V0", "(U1Z1V-5)(U1O1V-5)(U1O2V-8)"},
        {"Z3M1 Z3V-44", "(U1Z3V-44)(U1O4M0)"},
        {"O10V0", "(U1O10V-6)"},
        {"O9M0 O9M1 O9V-50", "(U1O9V-50)"},
        // An output alone.
        {"O3I7", "(U1O3I7)"},
        {"O3M1", "(U1O3M1)"},
        {"O3P0", "(U1O3P0)"},
        // Turned on: unmuted and within the turn-on range; left alone when it was on.
        {"O16P1", "(U1O16P1)(U1O16V-25)"},
        {"O16V-60 O16P1", "(U1O16P1)(U1O16V-50)"},
        {"O16M1 O16P1", "(U1O16P1)(U1O16V-25)"},
        {"O9P1", "(U1O9P1)(U1O9V-28)(U1O9M1)"},
        {"O3V-70 O3P1", "(U1O3P1)(U1O3V-70)"},
        // Bands: what a filter's command does not carry stays.
        {"O3B2HPF80", "(U1O3B2HPF80)"},
        {"O3B2LPF20000", "(U1O3B2LPF20000)"},
        {"O3B2HS-6F8000", "(U1O3B2HS-6F8000)"},
        {"O3B7LS15F1", "(U1O3B7LS15F1)"},
        {"O3B2P-15F1000", "(U1O3B2P-15F1000)"},
        {"O1B1BYPASS", "(U1O1B1BYPASS)"},
        {"O3B2HS-6F8000 O3B2BYPASS O3B2HPF80 O3B2BYPASS", "(U1O3B2BYPASS)"},
        // A group leads its zones, and they their outputs.
        {"G4V-30", "(U1G4V-30)(U1Z10V-30)(U1Z11V-30)(U1O13V-30)(U1O14V-30)(U1O15V-30)"},
        {"G4V0", "(U1G4V0)(U1Z10V-8)(U1Z11V-14)(U1O13V-8)(U1O14V-14)(U1O15V-14)"},
        {"G4I2", "(U1G4I2)(U1Z10I2)(U1Z11I2)(U1O13I2)(U1O14I2)(U1O15I2)"},
        {"G5M1", "(U1G5M1)(U1Z9M1)(U1Z10M1)(U1O11M1)(U1O12M1)(U1O13M1)"},
        {"G8P1", "(U1G8P1)(U1O16P1)(U1O16V-25)"},
        {"G5P0", "(U1G5P0)(U1O11P0)(U1O12P0)(U1O13P0)"},
        {"G10V-50", "(U1G10V-50)(U1Z13V-50)(U1Z14V-50)(U1Z15V-50)(U1Z16V-50)"},
        // Overrides hold, and let go of what was commanded in the meantime.
        {"AO3A2", "(U1AO3A1)(U1Z5M1)(U1O6M1)"},
        {"AO3A2 AO3A2", "(U1AO3A0)(U1Z5M0)(U1O6M0)"},
        {"AO3A2 Z5V-50", "(U1Z5V-50)(U1Z5M1)(U1O6V-50)(U1O6M1)"},
        {"AO3A2 Z5V-50 AO3A2", "(U1AO3A0)(U1Z5M0)(U1O6M0)"},
        {"AO3A2 Z5M0", "(U1Z5M1)"},
        {"AO4A2", "(U1AO4A1)(U1Z9I5)(U1Z10I5)(U1O11I5)(U1O12I5)(U1O13I5)"},
        {"AO1A2 Z1V-10", "(U1Z1V-45)"},
        {"AO1A2 Z1V-60", "(U1Z1V-60)(U1O1V-60)(U1O2V-60)"},
        {"AO2A2 O1B1HPF50", "(U1O1B1BYPASS)"},
        {"O16P1 AO7A2 O16P1", "(U1O16P0)"},
        // Scenes.
        {"SP3SAVE", ""},
        {"SP3LOAD", ""},
        {"Z16V-10 SP3LOAD", "(U1Z16V-40)"},
        {"Z16V-10 SP3SAVE Z16V-20 SP3LOAD", "(U1Z16V-10)"},
        {"O3P0 SP3LOAD", "(U1O3P1)(U1O3V-38)"},
        {"O3P0 O3B1HPF90 SP3LOAD", "(U1O3P1)(U1O3V-38)(U1O3B1HPF80)"},
        {"AO3A2 SP3SAVE AO3A2 SP3LOAD", ""},
        {"SERIAL0", ""},
        {"SERIAL1", ""},
    };
    for (const Case& test : CASES) {
        Unit unit;
        EXPECT_EQ(lastReports(unit, test.commands), test.reports) << test.commands;
    }
}

TEST(Unit, refusesWhatIsNoCommand) {
    const char* const BODIES[] = {
        "",
        "Z",
        "Z0V-10",
        "Z17V-10",
        "Z3V1",
        "Z3V-81",
        "Z3V",
        "Z3V-",
        "Z03V-10",
        "Z3V-05",
        "Z3V-0",
        "Z3V+1",
        "Z3V-10 ",
        "Z3V-10x",
        " Z3V-10",
        "z3V-10",
        "Z3I0",
        "Z3I21",
        "Z3M2",
        "Z3M",
        "Z3LD2",
        "Z3BASS16",
        "Z3TREB-16",
        "Z3MV-10",
        "Z3P1",
        "Z3N\"a\"",
        "O0V-10",
        "O17P1",
        "O3MV-10",
        "O3B0BYPASS",
        "O3B8BYPASS",
        "O3B1HPF0",
        "O3B1HPF20001",
        "O3B1HPF",
        "O3B1HS1000",
        "O3B1HS16F100",
        "O3B1P-16F100",
        "O3B1P1F",
        "O3B1BYPASS1",
        "G0V-10",
        "G11V-10",
        "G3LD1",
        "AO3A0",
        "AO3A1",
        "AO0A2",
        "AO11A2",
        "SP0LOAD",
        "SP11SAVE",
        "SP1",
        "APPQ5",
        "APPQ",
        "SERIAL2",
        "Z99999999999999999999V1",
    };
    for (const char* const body : BODIES) {
        Unit unit;
        const Memory before = unit.memory();
        const Response response = unit.execute(body);
        EXPECT_EQ(response.to, Response::To::NOT_A_COMMAND) << body;
        EXPECT_TRUE(response.reports.empty() && unit.memory() == before) << body;
    }
}

TEST(Unit, answersAskersAndTellsEverybody) {
    Unit unit(3);
    EXPECT_EQ(unit.execute("APPQ3").to, Response::To::ASKER);
    EXPECT_EQ(unit.execute("Z1V-10").to, Response::To::EVERYBODY);
    EXPECT_EQ(unit.execute("SP1SAVE").to, Response::To::NOBODY);
    EXPECT_EQ(unit.execute("APPQ2").reports.back(), "(U3APPQ2)");
}

TEST(Unit, answersAreCompleteAndEndInTheirMark) {
    using Kinds = std::map<std::string, int>;
    const Kinds INPUT_KINDS = {{"I#N", 20}, {"I#STEREO", 20}};
    Kinds zoneKinds = {{"O#Z", 16}};
    for (const char* const code : {"N", "MV", "V", "I", "M", "LD", "BASS", "TREB"})
        zoneKinds[std::string("Z#") + code] = 16;
    Kinds outputKinds;
    for (const char* const code :
         {"N", "STEREO", "MV", "MXTO", "MNTO", "P", "V", "I", "M", "B1", "B2", "B3", "B4", "B5", "B6", "B7"})
        outputKinds[std::string("O#") + code] = 16;
    Kinds groupKinds;
    for (const char* const code : {"N", "P", "V", "I", "M"})
        groupKinds[std::string("G#") + code] = 10;
    zoneKinds.insert(INPUT_KINDS.begin(), INPUT_KINDS.end());
    outputKinds.insert(INPUT_KINDS.begin(), INPUT_KINDS.end());
    groupKinds.insert(INPUT_KINDS.begin(), INPUT_KINDS.end());
    const Kinds EXPECTED[] = {zoneKinds, outputKinds, {{"SP#N", 10}}, {{"AO#A", 10}}, groupKinds};

    const Unit unit;
    for (int query = 0; query < 5; ++query) {
        std::vector<std::string> answer = unit.answer(query);
        EXPECT_EQ(answer.back(), "(U1APPQ" + std::to_string(query) + ")");
        answer.pop_back();
        Mirror mirror;
        mirror.hear(answer);
        EXPECT_EQ(mirror.values().size(), answer.size()) << "a report came twice in answer " << query;
        Kinds kinds;
        for (const auto& [key, value] : mirror.values())
            ++kinds[std::regex_replace(key, std::regex("^([A-Z]+)[0-9]+"), "$1#")];
        EXPECT_EQ(kinds, EXPECTED[query]) << "answer " << query;
    }
}

TEST(Unit, playsAHouseThatTriesNames) {
    Mirror mirror;
    mirror.hear(Unit().answer(0));
    std::set<std::string> zonesInUse;
    bool latin1 = false;
    bool quote = false;
    bool longest = false;
    for (const auto& [key, value] : mirror.values()) {
        if (key[0] == 'O' && key.back() == 'Z')
            zonesInUse.insert(value);
        if (key.back() == 'N') {
            latin1 |= value.find('\xE9') != std::string::npos;
            quote |= value.front() == '"' && value.back() == '"';
            longest |= value.size() == 16;
        }
    }
    EXPECT_EQ(zonesInUse.size(), 12U);
    EXPECT_TRUE(latin1 && quote && longest);
}

/// A client that heard every change must know what one knows that asks now: no side effect goes untold, and
/// none is told in an order that misleads.
TEST(Unit, changesKeepAListenerAsWellInformedAsAnAsker) {
    std::mt19937 random(20);
    const auto pick = [&](int low, int high) {
        return std::to_string(low + static_cast<int>(random() % static_cast<unsigned>(high - low + 1)));
    };
    Unit unit;
    Mirror listener;
    for (int query = 0; query < 5; ++query)
        listener.hear(unit.answer(query));
    for (int turn = 0; turn < 400; ++turn) {
        const std::string commands[] = {
            "Z" + pick(1, 16) + "V" + pick(-80, 0),
            "Z" + pick(1, 16) + "I" + pick(1, 20),
            "Z" + pick(1, 16) + "M" + pick(0, 1),
            "Z" + pick(1, 16) + "LD" + pick(0, 1),
            "Z" + pick(1, 16) + "BASS" + pick(-15, 15),
            "Z" + pick(1, 16) + "TREB" + pick(-15, 15),
            "O" + pick(1, 16) + "V" + pick(-80, 0),
            "O" + pick(1, 16) + "I" + pick(1, 20),
            "O" + pick(1, 16) + "M" + pick(0, 1),
            "O" + pick(1, 16) + "P" + pick(0, 1),
            "O" + pick(1, 16) + "B" + pick(1, 7) + "P" + pick(-15, 15) + "F" + pick(1, 20000),
            "O" + pick(1, 16) + "B" + pick(1, 7) + "LPF" + pick(1, 20000),
            "O" + pick(1, 16) + "B" + pick(1, 7) + "BYPASS",
            "G" + pick(1, 10) + "V" + pick(-80, 0),
            "G" + pick(1, 10) + "I" + pick(1, 20),
            "G" + pick(1, 10) + "M" + pick(0, 1),
            "G" + pick(1, 10) + "P" + pick(0, 1),
            "AO" + pick(1, 10) + "A2",
            "SP" + pick(1, 10) + "LOAD",
            "SP" + pick(1, 10) + "SAVE",
        };
        const std::string& body = commands[random() % std::size(commands)];
        const Response response = unit.execute(body);
        ASSERT_NE(response.to, Response::To::NOT_A_COMMAND) << body;
        listener.hear(response.reports);
        if (turn % 5 != 0)
            continue;
        Mirror asker;
        for (int query = 0; query < 5; ++query)
            asker.hear(unit.answer(query));
        ASSERT_EQ(listener.values(), asker.values()) << "after " << body << ", turn " << turn;
    }
}

TEST(Unit, restoresAMemoryWithinItsLimits) {
    Unit unit;
    Memory memory = unit.memory();
    memory.setting.zones[3].volume = 0;
    memory.scenes[5].outputs[4].volume = 0;
    memory.overrides[2] = 1;
    unit.restore(memory);
    EXPECT_EQ(unit.memory().setting.zones[3].volume, -20);
    EXPECT_EQ(unit.memory().scenes[5].outputs[4].volume, -20);
    EXPECT_EQ(lastReports(unit, "AO3A2"), "(U1AO3A0)(U1Z5M0)(U1O6M0)");
}

} // namespace

} // namespace lumbra::sim

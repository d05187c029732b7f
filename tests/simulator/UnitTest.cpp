#include "simulator/Unit.h"

#include <gtest/gtest.h>

#include <numeric>
#include <sstream>

namespace lumbra::sim::test {

std::string joined(const std::vector<std::string>& texts) {
    return std::accumulate(texts.begin(), texts.end(), std::string());
}

/// The reports that commands, divided by blanks, lead to; those before a "|" are not told.
std::string reportsOf(Unit& unit, const std::string& commands) {
    std::istringstream words(commands);
    std::string reports;
    for (std::string body; words >> body;)
        if (body == "|")
            reports.clear();
        else
            reports += joined(unit.execute(body).reports);
    return reports;
}

TEST(Unit, reportsWhatCommandsLeadTo) {
    const std::pair<const char*, const char*> CASES[] = {
        // A zone, and the outputs that it leads; the value it has is reported too.
        {"Z1V-30 Z3V-44 Z16V0", "(U1Z1V-30)(U1O1V-30)(U1O2V-30)(U1Z3V-44)(U1Z16V0)"},
        {"Z3LD0 Z3BASS-15 Z3TREB15", "(U1Z3LD0)(U1Z3BASS-15)(U1Z3TREB15)"},
        // Volumes are held to the maximum of whatever takes them, and unmute it.
        {"Z1V0 O10V0", "(U1Z1V-5)(U1O1V-5)(U1O2V-8)(U1O10V-6)"},
        {"Z3M1 Z3V-44", "(U1Z3M1)(U1O4M1)(U1Z3V-44)(U1O4M0)"},
        // An output alone. Turned on: unmuted and within the turn-on range; left alone when it was on.
        {"O3I7 O3M1 O3P0", "(U1O3I7)(U1O3M1)(U1O3P0)"},
        {"O16M1 O16V-60 O16M1 O16P1", "(U1O16M1)(U1O16V-60)(U1O16M1)(U1O16P1)(U1O16V-50)"},
        // Bands: what a filter's command does not carry stays.
        {"O3B2HPF80 O3B2LPF20000 O3B2HS-6F8000", "(U1O3B2HPF80)(U1O3B2LPF20000)(U1O3B2HS-6F8000)"},
        {"O3B7LS15F1 O3B2P-15F1000 O3B2BYPASS", "(U1O3B7LS15F1)(U1O3B2P-15F1000)(U1O3B2BYPASS)"},
        {"O3B2HS-6F8000 SP1SAVE O3B2HPF80 SP1LOAD", "(U1O3B2HS-6F8000)(U1O3B2HPF80)(U1O3B2HS-6F8000)"},
        // A group leads its zones, and they their outputs.
        {"G4V0", "(U1G4V0)(U1Z10V-8)(U1Z11V-14)(U1O13V-8)(U1O14V-14)(U1O15V-14)"},
        {"G5M1 G8P1", "(U1G5M1)(U1Z9M1)(U1Z10M1)(U1O11M1)(U1O12M1)(U1O13M1)(U1G8P1)(U1O16P1)(U1O16V-25)"},
        // Overrides hold, and let go of what was commanded in the meantime.
        {"AO3A2 Z5M0 Z5V-50 AO3A2",
         "(U1AO3A1)(U1Z5M1)(U1O6M1)(U1Z5M1)(U1Z5V-50)(U1Z5M1)(U1O6V-50)(U1O6M1)(U1AO3A0)(U1Z5M0)(U1O6M0)"},
        {"O16P1 AO1A2 AO2A2 AO7A2 | Z1V-10 O1B1HPF50 O16P1", "(U1Z1V-45)(U1O1B1BYPASS)(U1O16P0)"},
        // Scenes recall what was commanded, and report what that changes.
        {"Z16V-10 SP3SAVE Z16V-20 SP3LOAD SERIAL1", "(U1Z16V-10)(U1Z16V-20)(U1Z16V-10)"},
        {"O3P0 O3B1HPF90 SP3LOAD", "(U1O3P0)(U1O3B1HPF90)(U1O3P1)(U1O3V-38)(U1O3B1HPF80)"},
        {"AO3A2 SP3SAVE AO3A2 SP3LOAD", "(U1AO3A1)(U1Z5M1)(U1O6M1)(U1AO3A0)(U1Z5M0)(U1O6M0)"},
        // Whole answers.
        {"APPQ3", "(U1AO1A0)(U1AO2A0)(U1AO3A0)(U1AO4A0)(U1AO5A0)(U1AO6A0)(U1AO7A0)(U1AO8A0)(U1AO9A0)"
                  "(U1AO10A0)(U1APPQ3)"},
        {"APPQ2", "(U1SP1N\"Good Morning\")(U1SP2N\"Breakfast Radio\")(U1SP3N\"Working Day\")"
                  "(U1SP4N\"Dinner Jazz\")(U1SP5N\"Film Night\")(U1SP6N\"Party\")(U1SP7N\"Caf\xE9 Open\")"
                  "(U1SP8N\"\"Last\" Orders\")(U1SP9N\"Good Night\")(U1SP10N\"Everything Off\")(U1APPQ2)"},
    };
    for (const auto& [commands, reports] : CASES) {
        Unit unit;
        EXPECT_EQ(reportsOf(unit, commands), reports) << commands;
    }
}

TEST(Unit, tellsWhomItAnswersAndRefusesWhatIsNoCommand) {
    const std::pair<Response::To, const char*> CASES[] = {
        {Response::To::ASKER, "APPQ0,APPQ4"},
        {Response::To::EVERYBODY, "Z1V-10,Z3V-44,AO10A2"},
        {Response::To::NOBODY, "SP1SAVE,SERIAL0,SERIAL1"},
        {Response::To::NOT_A_COMMAND,
         ",Z,Z0V-10,Z17V-10,Z3V1,Z3V-81,Z3V,Z3V-,Z03V-10,Z3V-05,Z3V-0,Z3V+1,Z3V-10 ,Z3V-10x, Z3V-10,z3V-10,"
         "Z3I0,Z3I21,Z3M2,Z3M,Z3LD2,Z3BASS16,Z3TREB-16,Z3MV-10,Z3P1,Z3N\"a\",Z99999999999999999999V1,O0V-10,"
         "O17P1,O3MV-10,O3B0BYPASS,O3B8BYPASS,O3B1HPF0,O3B1HPF20001,O3B1HPF,O3B1HS1000,O3B1HS16F100,"
         "O3B1P-16F100,O3B1P1F,O3B1BYPASS1,G0V-10,G11V-10,G3LD1,AO3A0,AO3A1,AO0A2,AO11A2,SP0LOAD,SP11SAVE,"
         "SP1,APPQ5,APPQ,SERIAL2"},
    };
    for (const auto& [to, list] : CASES) {
        std::istringstream bodies(list);
        for (std::string body; std::getline(bodies, body, ',');) {
            Unit unit;
            const Memory before = unit.memory();
            const Response response = unit.execute(body);
            EXPECT_EQ(response.to, to) << body;
            EXPECT_TRUE(to != Response::To::NOT_A_COMMAND ||
                        (response.reports.empty() && unit.memory() == before))
                << body;
        }
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
    EXPECT_EQ(reportsOf(unit, "AO3A2"), "(U1AO3A0)(U1Z5M0)(U1O6M0)");
}

} // namespace lumbra::sim::test

#include "simulator/CommandReader.h"
#include "simulator/FloodPace.h"
#include "simulator/LineWriter.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <unistd.h>

namespace lumbra::sim {

namespace {

TEST(CommandReader, cutsCommandsOutOfAnyBytes) {
    const std::string longest(CommandReader::LONGEST_TEXT, 'x');
    const std::pair<std::string, std::string> CASES[] = {
        // "unit body;" each
        {"[U1SERIAL0][U1APPQ0]", "1 SERIAL0;1 APPQ0;"},
        {"x]\r\n[U4Z3V-35]\r\n]x", "4 Z3V-35;"},
        {"[U1Z3V-[[U1Z4M1]]", "1 Z4M1;"},
        {"U1Z3V-35][U1Z3V-35", ""},
        {"[U1][][U][V1APPQ0][UxAPPQ0][U12Z3M1]", "1 ;-1 ;-1 U;-1 V1APPQ0;-1 UxAPPQ0;1 2Z3M1;"},
        {std::string("[U1\0\xFF]", 6), std::string("1 \0\xFF;", 5)},
        {"[" + longest + "][" + longest + "x]", "-1 " + longest + ";"},
        {"[" + std::string(1'000'000, 'U') + "[U1M]", "1 M;"},
    };
    for (const auto& [bytes, expected] : CASES) {
        CommandReader reader;
        std::string commands;
        for (const char byte : bytes)
            if (const auto command = reader.take(byte))
                commands += std::to_string(command->unit) + ' ' + command->body + ';';
        EXPECT_EQ(commands, expected) << bytes.substr(0, 100);
    }
}

TEST(FloodPace, keepsItsRateButMakesUpForNoLostTime) {
    using std::chrono::milliseconds;
    FloodPace slow(3);
    std::int64_t sum = 0;
    for (int tick = 0; tick < 1000; ++tick)
        sum += slow.due(FloodPace::TICK);
    EXPECT_EQ(sum, 30);
    FloodPace fast(1'000'000);
    EXPECT_EQ(fast.due(milliseconds(11)), 11'000);
    EXPECT_EQ(fast.due(milliseconds(10'000)), 20'000);
    EXPECT_EQ(fast.due(milliseconds(10)), 10'000);
}

TEST(LineWriter, neverWaitsAndTellsWhatItLeftOutInItsPlace) {
    int ends[2] = {-1, -1};
    ASSERT_EQ(::pipe(ends), 0);
    LineWriter writer(ends[1]);
    constexpr int COUNT = 100'000;
    for (int number = 0; number < COUNT; ++number)
        writer.write(std::to_string(number) + std::string(static_cast<std::size_t>(number % 3) * 50, '.'));
    EXPECT_FALSE(writer.flush(std::chrono::milliseconds(0)));
    FILE* const reader = ::fdopen(ends[0], "r");
    char line[200];
    int lines = 0;
    for (int next = 0; next < COUNT; ++lines) {
        ASSERT_NE(std::fgets(line, sizeof line, reader), nullptr);
        const bool notice = line[0] == '!';
        ASSERT_TRUE(notice || std::atoi(line) == next) << line << " instead of " << next;
        next += notice ? std::atoi(line + 2) : 1;
    }
    EXPECT_LT(lines, COUNT / 2);
    EXPECT_TRUE(writer.flush(std::chrono::seconds(20)));
    std::fclose(reader);
    ::close(ends[1]);
}

} // namespace

} // namespace lumbra::sim

#include "NoDescriptors.h"
#include "simulator/CommandReader.h"
#include "simulator/FloodPace.h"
#include "simulator/LineWriter.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>

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

TEST(LineWriter, neverWaitsAndTellsWhatItLeftOut) {
    int ends[2] = {-1, -1};
    ASSERT_EQ(::pipe(ends), 0);
    LineWriter writer(ends[1]);
    const std::string line(99, 'x');
    constexpr std::ptrdiff_t COUNT = 20'000;
    for (std::ptrdiff_t number = 0; number < COUNT; ++number)
        writer.write(line);
    EXPECT_FALSE(writer.flush(std::chrono::milliseconds(0)));
    std::string read;
    char buffer[4096];
    while (read.find("too slow\n") == std::string::npos)
        read.append(buffer, static_cast<std::size_t>(std::max<ssize_t>(0, ::read(ends[0], buffer, 4096))));
    const std::size_t notice = read.rfind("! ");
    ASSERT_NE(notice, std::string::npos);
    EXPECT_EQ(std::count(read.begin(), read.end(), '\n') - 1 + std::stoi(read.substr(notice + 2)), COUNT);
    EXPECT_LT(read.size(), LineWriter::MOST_WAITING + 200'000);
    writer.write("again");
    EXPECT_TRUE(writer.flush(std::chrono::seconds(20)));
    EXPECT_EQ(std::string(buffer, static_cast<std::size_t>(::read(ends[0], buffer, 4096))), "again\n");
}

} // namespace

} // namespace lumbra::sim

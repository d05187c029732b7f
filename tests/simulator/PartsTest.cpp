#include "simulator/CommandReader.h"

#include <gtest/gtest.h>

namespace lumbra::sim::test {

TEST(CommandReader, cutsCommandsOutOfAnyBytes) {
    const std::string longest(CommandReader::LONGEST_TEXT, 'x');
    const std::pair<std::string, std::string> CASES[] = {
        // "unit body;" each
        {"[U1SERIAL0][U1APPQ0]", "1 SERIAL0;1 APPQ0;"},
        {"x]\r\n[U4Z3V-35]\r\n]x", "4 Z3V-35;"},
        {"[U1Z3V-[[U1Z4M1]]", "1 Z4M1;"},
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

} // namespace lumbra::sim::test

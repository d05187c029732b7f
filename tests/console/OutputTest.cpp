#include "Session.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using namespace lumbra;
using namespace std::chrono_literals;

std::size_t count(std::string_view text, std::string_view part) {
    std::size_t found = 0;
    for (auto at = text.find(part); at != std::string_view::npos; at = text.find(part, at + part.size()))
        ++found;
    return found;
}

// A reader that is slow loses no line, and holds up neither the link nor the timers.
TEST(Output, WaitsForASlowReader) {
    Session session;
    session.start();
    for (int i = 0; i < 2000; ++i)
        session.remote.report(i % 2 == 0 ? "U1Z1V-30" : "U1Z1V-31");
    session.settle();
    session.type("switch muteSwitch on\n");
    EXPECT_TRUE(session.remote.sent().empty()) << "commands wait for a reader that is far behind";

    auto printed = session.read();
    while (count(printed, "\"reply\":\"switch\"") == 0) {
        session.remote.queue.advance(5ms);
        session.settle();
        const auto more = session.read();
        ASSERT_FALSE(more.empty());
        printed += more;
    }
    EXPECT_EQ(session.remote.sent(), std::vector<std::string>{"[U1Z1M1]"});
    EXPECT_EQ(count(printed, "\n"), 4000U + 2U);
    EXPECT_TRUE(printed.ends_with("{\"reply\":\"switch\",\"ok\":true}\n"));
}

// Nobody reads any more: the commands are carried out all the same.
TEST(Output, SurvivesAClosedReader) {
    Session session;
    session.start();
    session.closeOutput();
    session.type("state\n");
    session.type("switch muteSwitch on\nfly\n");
    session.endInput();
    session.settle();
    EXPECT_EQ(session.remote.sent(), std::vector<std::string>{"[U1Z1M1]"});
    EXPECT_EQ(session.exitStatus, 1);
}

} // namespace

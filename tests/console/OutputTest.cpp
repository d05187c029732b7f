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

// A reader that is behind holds up neither the commands nor the reports: it gets every reply, and of each control the
// newest state.
TEST(Output, GathersControlsForASlowReader) {
    Session session;
    session.start();
    for (int turn = 0; turn < 3; ++turn) {
        for (int i = 0; i < 2000; ++i)
            session.remote.report(i % 2 == 0 ? "U1Z1V-30" : "U1Z1V-31");
        session.settle();
    }
    session.remote.report("U1Z1V-32");
    session.type("switch muteSwitch on\ntab group\nwait 0\n");
    session.remote.queue.advance(0ms);
    session.settle();
    EXPECT_EQ(session.remote.sent(), (std::vector<std::string>{"[U1Z1M1]", "[U1APPQ4]"}));

    std::string printed;
    for (auto more = session.read(); !more.empty(); more = session.read()) {
        printed += more;
        session.remote.queue.advance(5ms);
        session.settle();
    }
    EXPECT_LT(count(printed, "volumeSlider"), 3000U);
    EXPECT_EQ(count(printed, "\"reply\""), 3U);
    const auto newest = printed.rfind("\"value\":-32.0");
    ASSERT_NE(newest, std::string::npos);
    EXPECT_EQ(printed.find("\"control\":\"volumeSlider\"", newest), std::string::npos);
    EXPECT_LT(newest, printed.find("\"screen\":\"group\""))
        << "the old screen's states come before the new screen";
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

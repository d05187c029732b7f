#include "Session.h"
#include "console/Completion.h"
#include "console/LineBuffer.h"
#include "script/Numbers.h"
#include "script/Words.h"
#include "text/Decimal.h"

#include <gtest/gtest.h>

namespace {

using namespace lumbra;
using namespace lumbra::console;
using namespace lumbra::script;
using namespace std::chrono_literals;

TEST(Words, AreSplitAtBlanksAndQuotes) {
    const std::pair<const char*, std::vector<std::string>> cases[] = {
        {" a\tb  c ", {"a", "b", "c"}},
        {R"(set k "a b")", {"set", "k", "a b"}},
        {R"("a\"b\\c")", {"a\"b\\c"}},
        {R"("a\nb\")", {"a\\nb\""}}, // and not closed
        {"\"\xc3\xa9 \xe2\x82\xac\"", {"\xc3\xa9 \xe2\x82\xac"}},
    };
    for (const auto& [line, words] : cases)
        EXPECT_EQ(splitWords(line).words, words) << line;
}

// Lines come in pieces of any size; what ends them is no part of them.
TEST(Console, CutsLinesWhereverTheBytesAreSplit) {
    const std::string longest = "tab 0" + std::string(Line::MAX_LENGTH - 5, ' ');
    const std::string bytes =
        "\n" + longest + "\n" + longest + "x\n\r\ntab 0\r\n" + longest + longest + "\ntab 0\r";
    for (const std::size_t piece : {7U, 4096U, 16384U}) {
        Session session;
        session.start();
        for (std::size_t at = 0; at < bytes.size(); at += piece)
            session.type(std::string_view(bytes).substr(at, piece));
        session.endInput();
        EXPECT_EQ(session.play(R"(
            = tab ; = tab a line may have at most 65536 bytes ; = tab
            = tab a line may have at most 65536 bytes ; = tab ; exit 1)"),
                  "")
            << piece;
    }
}

// Single precision both ways: the digits that are printed are the shortest that read back as the same float.
TEST(Numbers, SurviveTheirText) {
    for (const auto* text : {"16777216.0", "-0.1", "4301.0303", "1.0"})
        EXPECT_EQ(decimalOf(parseLevel(text).value()), text);
    EXPECT_EQ(parseSeconds("1e-10"), 1ns) << "a time is never short";
}

TEST(Completion, OffersWhatMayStandThere) {
    Remote remote;
    remote.launch();
    const std::pair<const char*, std::vector<std::string>> cases[] = {
        {"", {"help",   "state",   "tab",   "pick",  "slide", "hold",    "release",
              "switch", "segment", "press", "level", "mute",  "dismiss", "watch",
              "get",    "set",     "unset", "app",   "wait",  "at",      "quit"}},
        {"s", {"state", "slide", "switch", "segment", "set"}},
        {"slide ", {"volumeSlider", "bassSlider", "trebleSlider"}},
        {"press ", {}}, // this screen has no button
        {"switch muteSwitch o", {"on", "off"}},
        {"tab ", {"zone", "group", "override", "scene"}},
        {"set polling_preference ", {"true", "false"}},
        {"set start_tab_preference ", {}},
        {"watch ", {"on", "off"}},
        {"app b", {"become-active", "back"}},
        {"tab zone zone ", {}},
    };
    for (const auto& [line, words] : cases)
        EXPECT_EQ(completions(remote.application, line), words) << line;
    ASSERT_EQ(remote.play("tab scene"), "");
    EXPECT_EQ(completions(remote.application, "press l"), std::vector<std::string>{"loadSceneButton"});
}

} // namespace

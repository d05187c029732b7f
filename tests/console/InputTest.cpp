#include "Session.h"
#include "console/Completion.h"
#include "console/LineBuffer.h"
#include "console/Numbers.h"
#include "console/Words.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <random>

namespace {

using namespace lumbra;
using namespace lumbra::console;
using namespace std::chrono_literals;

TEST(Words, AreSplitAtBlanksAndQuotes) {
    const std::pair<const char*, std::vector<std::string>> cases[] = {
        {"", {}},
        {"  \t ", {}},
        {" a\tb  c ", {"a", "b", "c"}},
        {R"(set k "a b")", {"set", "k", "a b"}},
        {R"("" "")", {"", ""}},
        {R"("a\"b\\c")", {"a\"b\\c"}},
        {R"("a\nb\")", {"a\\nb\""}}, // and not closed
        {R"(a\b)", {"a\\b"}},
        {"\"\xc3\xa9 \xe2\x82\xac\"", {"\xc3\xa9 \xe2\x82\xac"}},
    };
    for (const auto& [line, words] : cases)
        EXPECT_EQ(splitWords(line).words, words) << line;
}

TEST(LineBuffer, CutsLinesWhereverTheBytesAreSplit) {
    const std::string bytes = "\none\n\r\ntwo\r\n" + std::string(LineBuffer::MAX_LINE, 'x') + "\n" +
                              std::string(LineBuffer::MAX_LINE * 3, 'y') + "\nlast\r";
    for (const std::size_t piece : {std::size_t{1}, std::size_t{2}, std::size_t{16384}, bytes.size()}) {
        LineBuffer buffer;
        std::string seen;
        const auto take = [&] {
            while (const auto line = buffer.next())
                seen += line->text.substr(0, 4) + ":" + std::to_string(line->text.size()) +
                        (line->tooLong ? " too long, " : ", ");
        };
        for (std::size_t at = 0; at < bytes.size(); at += piece) {
            buffer.append(std::string_view(bytes).substr(at, piece));
            take();
        }
        buffer.end();
        take();
        EXPECT_EQ(seen, ":0, one:3, :0, two:3, xxxx:65536, yyyy:65536 too long, last:4, ") << piece;
    }
}

TEST(Console, ALineThatIsTooLongIsOneError) {
    Session session;
    session.start();
    session.type("tab " + std::string(30000, 'x'));
    session.type(std::string(40000, 'x') + "\"tab group\ntab 0\n");
    EXPECT_EQ(session.play("= tab a line may have at most 65536 bytes ; = tab"), "");
}

// Single precision both ways: the digits that are printed are the shortest that read back as the same float.
TEST(Numbers, FloatsSurviveTheirText) {
    const std::pair<float, const char*> cases[] = {{-40.0F, "-40.0"},           {0.0F, "0.0"},
                                                   {1301.03F, "1301.03"},       {0.1F, "0.1"},
                                                   {16777216.0F, "16777216.0"}, {1e-10F, "1e-10"}};
    for (const auto& [value, text] : cases)
        EXPECT_EQ(decimalOf(value), text);
    std::mt19937 random(1);
    std::uniform_real_distribution<float> levels(-80, 5000);
    for (int i = 0; i < 1000; ++i) {
        const float value = levels(random);
        EXPECT_EQ(std::strtof(decimalOf(value).c_str(), nullptr), value);
        EXPECT_EQ(parseLevel(decimalOf(value)), value);
    }
}

TEST(Numbers, TimesAreFiniteAndNeverShort) {
    EXPECT_EQ(parseSeconds("0.75"), 750ms);
    EXPECT_EQ(parseSeconds("0"), 0ns);
    EXPECT_EQ(parseSeconds("1e-10"), 1ns);
    EXPECT_EQ(parseSeconds("1e9"), 1000000000s);
    for (const auto* text : {"", "-0.1", "inf", "nan", "1e400", "1s", " 1", "1e9.5"})
        EXPECT_EQ(parseSeconds(text), std::nullopt) << text;
}

TEST(Completion, OffersWhatMayStandThere) {
    Remote remote;
    remote.launch();
    const std::pair<const char*, std::vector<std::string>> cases[] = {
        {"",
         {"help", "state", "tab", "pick", "slide", "switch", "segment", "press", "dismiss", "get", "set",
          "unset", "app", "wait", "quit"}},
        {"s", {"state", "slide", "switch", "segment", "set"}},
        {"slide ", {"volumeSlider", "bassSlider", "trebleSlider"}},
        {"slide b", {"bassSlider"}},
        {"slide bassSlider ", {}},
        {"pick ", {"zonePicker", "sourcePicker"}},
        {"press ", {}}, // this screen has no button
        {"switch muteSwitch o", {"on", "off"}},
        {"tab ", {"zone", "group", "override", "scene"}},
        {"set uni", {"unit_number_preference"}},
        {"set polling_preference ", {"true", "false"}},
        {"set ip_address_preference ", {}},
        {"app b", {"become-active", "back"}},
        {"wait ", {"answer", "open", "closed"}},
        {"fly ", {}},
        {"tab zone zone ", {}},
    };
    for (const auto& [line, words] : cases)
        EXPECT_EQ(completions(remote.application, line), words) << line;
}

} // namespace

#include "protocol/ReportBuffer.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace lumbra {
namespace {

using Texts = std::vector<std::string>;

Texts texts(const std::vector<std::string>& chunks) {
    ReportBuffer buffer;
    Texts found;
    for (const auto& chunk : chunks)
        buffer.feed({reinterpret_cast<const std::uint8_t*>(chunk.data()), chunk.size()},
                    [&found](std::string_view text) { found.emplace_back(text); });
    return found;
}

TEST(ReportBuffer, CutsTheStreamIntoTexts) {
    const std::string most(ReportBuffer::CAPACITY, 'x');
    const struct {
        const char* name;
        std::vector<std::string> chunks;
        Texts expected;
    } cases[] = {
        {"text outside is dropped", {"xx(U1APPQ2)\r\n"}, {"U1APPQ2"}},
        {"a begun report is dropped by the next one", {"(U1Z3(U1Z4V-1)"}, {"U1Z4V-1"}},
        {"two in one run", {"(a)(b)"}, {"a", "b"}},
        {"a stray close repeats the last report", {"(a)x)"}, {"a", "a"}},
        {"a stray close at first is an empty text", {")"}, {""}},
        {"split anywhere", {"(", "U1", "", "Z3V-", "30", ")"}, {"U1Z3V-30"}},
        {"an empty report", {"()"}, {""}},
        {"any byte is a character", {std::string("(\0\xE9\n[])", 7)}, {std::string("\0\xE9\n[]", 5)}},
        {"a long text keeps what a pattern can read", {"(" + most + "yyyy)(b)"}, {most, "b"}},
    };
    for (const auto& c : cases)
        EXPECT_EQ(texts(c.chunks), c.expected) << c.name;
}

} // namespace
} // namespace lumbra

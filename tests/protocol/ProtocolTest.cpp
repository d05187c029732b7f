#include "FormOracle.h"
#include "protocol/Command.h"
#include "protocol/OutputMessages.h"
#include "protocol/StateQuery.h"

#include <gtest/gtest.h>

#include <sstream>

namespace lumbra::test {

using namespace std::string_view_literals;

TEST(OutputMessages, ABandCarriesWhatItsTypeHas) {
    std::string all;
    for (auto type = 0; type <= FILTER_PARAMETRIC; ++type)
        all += outputs::setBand(15, 6, static_cast<FilterType>(type), -6, 8000) + " ";
    EXPECT_EQ(all, "O16B7BYPASS O16B7HPF8000 O16B7HS-6F8000 O16B7LPF8000 O16B7LS-6F8000 O16B7P-6F8000 ");
}

// What a shared link recognises is what the screens send and wait for.
TEST(StateQuery, IsReadFromItsCommandAndItsEnd) {
    for (int number = 0; number < StateQuery::COUNT; ++number) {
        const StateQuery query{3, number};
        const auto end = "U3" + queryState(number);
        EXPECT_EQ(readQuery(frameCommand(3, queryState(number))), query);
        EXPECT_EQ(readEndOfState(end + "7"), query);
    }
    for (const auto* none :
         {"[U1APPQ5]", "[U1APPQ00]", "[U12APPQ0]", "[U-1APPQ0]", "[UAPPQ0]", "[U1APPQ0", "[U1SERIAL0]"})
        EXPECT_FALSE(readQuery(none)) << none;
    for (const auto* none : {"U1APPQ5", "U1APPQ", "U12APPQ0", "APPQ0", "", "U1Z1V-3"})
        EXPECT_FALSE(readEndOfState(none)) << none;
}

TEST(ReportBuffer, CutsTheStreamIntoTexts) {
    using Texts = std::vector<std::string>;
    const std::string most(ReportBuffer::CAPACITY, 'x');
    const struct {
        const char* name;
        Texts chunks;
        Texts expected;
    } cases[] = {
        {"text outside is dropped", {"xx(U1APPQ2)\r\n"}, {"U1APPQ2"}},
        {"a begun report is dropped by the next one", {"(U1Z3(U1Z4V-1)(b)"}, {"U1Z4V-1", "b"}},
        {"a stray close repeats the last report", {"(a)x)"}, {"a", "a"}},
        {"a stray close at first is an empty text", {")"}, {""}},
        {"split anywhere", {"(", "U1", "", "Z3V-", "30", ")"}, {"U1Z3V-30"}},
        {"any byte is a character", {std::string("(\0\xE9\n[])", 7)}, {std::string("\0\xE9\n[]", 5)}},
        {"a long text keeps what a form can read", {"(" + most + "yyyy)(b)"}, {most, "b"}},
    };
    for (const auto& c : cases) {
        ReportBuffer buffer;
        Texts found;
        for (const auto& chunk : c.chunks)
            buffer.feed({reinterpret_cast<const std::uint8_t*>(chunk.data()), chunk.size()},
                        [&found](std::string_view text) { found.emplace_back(text); });
        EXPECT_EQ(found, c.expected) << c.name;
    }
}

TEST(ReportForms, ReadNumbersNamesAndEnds) {
    const std::pair<std::string_view, std::string_view> cases[] = {
        {"U1Z16V-405", "0 1 16 -40"},
        {"U1Z3V-0", "0 1 3 0"},
        {"U0Z0I00", "1 0 0 0"},
        {"U1Z3N\"\"", ""},
        {"U1Z3N\"\"\"", "4 1 3 \""},
        {"U1Z3N\"a\"b\"c", "4 1 3 a\"b"},
        {"U1Z3N\"1234567890123456\"", "4 1 3 1234567890123456"},
        {"U1Z3N\"12345678901234567\"", ""},
        {"U1Z3N\"12345678901234\"5\"7\"", "4 1 3 12345678901234\"5"},
        {"U1Z3N\"a\"\nb\"", "4 1 3 a"},
        {"U1Z3N\" \0\"\n"sv, "4 1 3  \0"sv},
    };
    for (const auto& [text, words] : cases)
        EXPECT_EQ(oracle::byForms(text), words) << text;
}

// A report of every row, cut short and changed at every place.
TEST(ReportForms, AgreeWithTheRegularExpressions) {
    std::istringstream reports(R"~(U1Z3V-35 U1Z16I20 U1Z3MV-20 U1Z3M1 U1Z3N"1234567890"23456" U1O3B2BYPASS
        U1O7B7P-3F12345 U1O16Z1 U1APPQ4 U1SP10N"a"b" U1A-123456789B10)~");
    const auto check = [](std::string_view text) {
        ASSERT_EQ(oracle::byForms(text), oracle::byExpressions(text)) << text;
    };
    std::size_t row = 0;
    for (std::string report; reports >> report; ++row) {
        check(report);
        EXPECT_TRUE(oracle::byForms(report).starts_with(std::to_string(row) + " ")) << report;
        for (std::size_t place = 0; place <= report.size(); ++place) {
            check(report.substr(0, place));
            for (const char other : "01789-+\"UZOIGASPMVNBFHLQ*\r\n\0\xE9"sv) {
                std::string text = report;
                check(text.insert(place, 1, other));
                check(text.erase(place + 1, 1)); // `other` in place of what stood there
                check(text.erase(place, 1));
            }
        }
    }
    EXPECT_EQ(row, std::size(oracle::FORMS));
}

TEST(ReportForms, AreCheckedWhenTheyAreCompiled) {
    std::istringstream good(R"~(U#Z##V-## U#O##B[1-7]BYPASS U#SP##N"*" U#APPQ0
        U#A-#########B-#########C-#########D-########N"*")~"); // the last reads up to 64 characters
    for (std::string form; good >> form;)
        EXPECT_TRUE(Form::isForm(form)) << form;
    std::istringstream bad(R"~(U# Z##V U##Z xU#Z U#"*" U#Z##v U#Z##V- U#Z##V--# U#Z##V+# U#Z##[0-1] U#Z##-##
        U#Z##0 U#ZM[0-1]0 U#ZM[1] U#ZM[1- U#ZM[1-0] U#ZM[a-b] U#ZN" U#ZN* U#ZN"* U#ZN"*"X U#Z##########
        U#A#B#C#D#E# U#ABCDEFGHIJKLMNO U#A-#########B-#########C-#########D-#########N"*")~");
    for (std::string form; bad >> form;)
        EXPECT_FALSE(Form::isForm(form)) << form;
    EXPECT_FALSE(Form::isForm(""));
}

} // namespace lumbra::test

#include "protocol/GroupMessages.h"
#include "protocol/OutputMessages.h"
#include "protocol/OverrideMessages.h"
#include "protocol/SceneMessages.h"
#include "protocol/ZoneMessages.h"

#include <gtest/gtest.h>

#include <string>

namespace lumbra {
namespace {

// A typed report in words, with its numbers as they are in the code: items from 0.
template <class... Parts>
std::string words(const char* kind, const Parts&... parts) {
    std::string all = kind;
    const auto add = [&all](const auto& part) {
        if constexpr (std::is_convertible_v<decltype(part), std::string_view>)
            all += " '" + std::string(part) + "'";
        else
            all += " " + std::to_string(part);
    };
    (add(parts), ...);
    return all;
}
std::string describe(const reports::Volume& r) {
    return words("volume", r.item, r.level);
}
std::string describe(const reports::Input& r) {
    return words("input", r.item, r.input);
}
std::string describe(const reports::Mute& r) {
    return words("mute", r.item, r.on);
}
std::string describe(const reports::Power& r) {
    return words("power", r.item, r.on);
}
std::string describe(const reports::ItemName& r) {
    return words("name", r.item, r.name.view());
}
std::string describe(const reports::InputName& r) {
    return words("input name", r.input, r.name.view());
}
std::string describe(const reports::InputStereo& r) {
    return words("input stereo", r.input, r.on);
}
std::string describe(const reports::MaxVolume& r) {
    return words("max", r.item, r.level);
}
std::string describe(const reports::EndOfState&) {
    return "end";
}
std::string describe(const zones::Loudness& r) {
    return words("loudness", r.item, r.on);
}
std::string describe(const zones::Bass& r) {
    return words("bass", r.item, r.level);
}
std::string describe(const zones::Treble& r) {
    return words("treble", r.item, r.level);
}
std::string describe(const zones::OutputAssignment& r) {
    return words("assigned", r.output, r.item);
}
std::string describe(const outputs::Band& r) {
    return words("band", r.item, r.band, r.type, r.gain.value_or(99), r.frequency.value_or(99));
}
std::string describe(const outputs::MaxTurnOnVolume& r) {
    return words("max on", r.item, r.level);
}
std::string describe(const outputs::MinTurnOnVolume& r) {
    return words("min on", r.item, r.level);
}
std::string describe(const outputs::Stereo& r) {
    return words("stereo", r.item, r.on);
}
std::string describe(const overrides::State& r) {
    return words("override", r.item, r.on);
}

template <class Report>
std::string read(const ReportParser<Report>& parser, std::string_view text) {
    const auto parsed = parser.parse(text);
    if (!parsed)
        return "none";
    return std::to_string(parsed->unit) + ": " +
           std::visit([](const auto& r) { return describe(r); }, parsed->report);
}

struct Case {
    std::string_view text;
    std::string_view expected;
};

template <class Report, std::size_t N>
void check(std::span<const ReportPattern<Report>> table, const Case (&cases)[N]) {
    const ReportParser<Report> parser(table);
    for (const auto& c : cases)
        EXPECT_EQ(read(parser, c.text), c.expected) << c.text;
}

using namespace std::string_view_literals;

TEST(ReportPatterns, OfZones) {
    check(zones::reportPatterns(), {
                                       {"U1Z16V-80", "1: volume 15 -80"},
                                       {"U1Z3V-405", "1: volume 2 -40"},
                                       {"U1Z3V-0", "1: volume 2 0"},
                                       {"U1Z3V", "none"},
                                       {"U1Z3V--1", "none"},
                                       {"U1Z3V+1", "none"},
                                       {"U1Z123V-1", "none"},
                                       {"xU1Z3V-1", "none"},
                                       {"u1Z3V-1", "none"},
                                       {"U12Z3V-1", "none"},
                                       {"U0Z0I0", "0: input -1 -1"},
                                       {"U1Z03I021", "1: input 2 1"},
                                       {"U1Z3M1", "1: mute 2 1"},
                                       {"U1Z3M2", "none"},
                                       {"U1Z3LD0", "1: loudness 2 0"},
                                       {"U1Z3BASS-16", "1: bass 2 -16"},
                                       {"U1Z3TREB7", "1: treble 2 7"},
                                       {"U1Z3MV-20", "1: max 2 -20"},
                                       {"U1O16Z1", "1: assigned 15 0"},
                                       {"U1I20STEREO1", "1: input stereo 19 1"},
                                       {"U1I2N\"Tuner\"", "1: input name 1 'Tuner'"},
                                       {"U1Z3N\"Living Room\"", "1: name 2 'Living Room'"},
                                       {"U1Z3N\"1234567890123456\"", "1: name 2 '1234567890123456'"},
                                       {"U1Z3N\"12345678901234567\"", "none"},
                                       {"U1Z3N\"\"", "none"},
                                       {"U1Z3N\"\"\"", "1: name 2 '\"'"},
                                       {"U1Z3N\"a\"b\"", "1: name 2 'a\"b'"},
                                       {"U1Z3N\"a\"b", "1: name 2 'a'"},
                                       {"U1Z3N\"12345678901234\"5\"7\"", "1: name 2 '12345678901234\"5'"},
                                       {"U1Z3N\" a \"", "1: name 2 ' a '"},
                                       {"U1Z3N\"a\nb\"", "none"},
                                       {"U1Z3N\"a\rb\"", "none"},
                                       {"U1Z3N\"a\0b\"\n"sv, "1: name 2 'a\0b'"sv},
                                       {"U1Z3N\"Caf\xE9\"", "1: name 2 'Caf\xC3\xA9'"},
                                       {"U1Z3N\"\x85\xFF\"", "1: name 2 '\xC2\x85\xC3\xBF'"},
                                       {"U1APPQ0", "1: end"},
                                       {"U1APPQ01", "1: end"},
                                       {"U1APPQ1", "none"},
                                       {"U1G3V-10", "none"},
                                       {"", "none"},
                                   });
}

TEST(ReportPatterns, OfOutputs) {
    check(outputs::reportPatterns(), {
                                         {"U1O3V5", "1: volume 2 5"},
                                         {"U1O3I21", "1: input 2 20"},
                                         {"U1O3M0", "1: mute 2 0"},
                                         {"U1O3P1", "1: power 2 1"},
                                         {"U1O3B2BYPASS", "1: band 2 1 0 99 99"},
                                         {"U1O3B2HPF20001", "1: band 2 1 1 99 20001"},
                                         {"U1O3B7HS-6F8000", "1: band 2 6 2 -6 8000"},
                                         {"U1O3B1LPF0", "1: band 2 0 3 99 0"},
                                         {"U1O3B1LS4F120", "1: band 2 0 4 4 120"},
                                         {"U1O3B2P-0F1000", "1: band 2 1 5 0 1000"},
                                         {"U1O3B2P-3F123456", "1: band 2 1 5 -3 12345"},
                                         {"U1O3B2P-3", "none"},
                                         {"U1O3B8BYPASS", "none"},
                                         {"U1O3B0HPF100", "none"},
                                         {"U1O3MV-20", "1: max 2 -20"},
                                         {"U1O3MXTO-20", "1: max on 2 -20"},
                                         {"U1O3MNTO-90", "1: min on 2 -90"},
                                         {"U1O3STEREO1", "1: stereo 2 1"},
                                         {"U1O3N\"Terrace\"", "1: name 2 'Terrace'"},
                                         {"U1I3N\"CD\"", "1: input name 2 'CD'"},
                                         {"U1I3STEREO0", "1: input stereo 2 0"},
                                         {"U1O3Z4", "none"},
                                         {"U1APPQ1", "1: end"},
                                         {"U1APPQ0", "none"},
                                     });
}

TEST(ReportPatterns, OfGroupsOverridesAndScenes) {
    check(groups::reportPatterns(), {
                                        {"U1G11V-81", "1: volume 10 -81"},
                                        {"U1G3I20", "1: input 2 19"},
                                        {"U1G3M1", "1: mute 2 1"},
                                        {"U1G3P0", "1: power 2 0"},
                                        {"U1G3P2", "none"},
                                        {"U1G3N\"Back Yard\"", "1: name 2 'Back Yard'"},
                                        {"U1I3N\"CD\"", "1: input name 2 'CD'"},
                                        {"U1I3STEREO1", "1: input stereo 2 1"},
                                        {"U1APPQ4", "1: end"},
                                        {"U1APPQ3", "none"},
                                    });
    check(overrides::reportPatterns(), {
                                           {"U1AO10A1", "1: override 9 1"},
                                           {"U1AO3A2", "none"},
                                           {"U1APPQ3", "1: end"},
                                           {"U1APPQ4", "none"},
                                       });
    check(scenes::reportPatterns(), {
                                        {"U1SP10N\"Party\"", "1: name 9 'Party'"},
                                        {"U1SP3LOAD", "none"},
                                        {"U1APPQ2", "1: end"},
                                        {"U1APPQ3", "none"},
                                    });
}

TEST(ReportPatterns, AreMeasuredRight) {
    EXPECT_EQ(longestMatch(R"~(^U([0-9])Z([0-9]{1,2})N"(.{1,16})")~"),
              std::string_view("U1Z16N\"\"").size() + 16);
    EXPECT_EQ(longestMatch("^U([0-9])O([0-9]{1,2})B([1-7])HS(-?[0-9]{1,2})F([0-9]{1,5})"),
              std::string_view("U1O16B7HS-15F20000").size());
}

} // namespace
} // namespace lumbra

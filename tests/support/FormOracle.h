#pragma once

#include "protocol/GroupMessages.h"
#include "protocol/OutputMessages.h"
#include "protocol/OverrideMessages.h"
#include "protocol/SceneMessages.h"
#include "protocol/ZoneMessages.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <regex>
#include <string>
#include <string_view>
#include <type_traits>
#include <typeinfo>
#include <variant>
#include <vector>

// The report forms a second time, as regular expressions on the standard library's engine. Both readings are
// put in words: "1 Volume 2 -40" is the unit, the typed report and its members. No reading is an empty text.
namespace lumbra::oracle {

inline std::string word(const Name& name) {
    return " " + std::string(name.view());
}
inline std::string word(std::int64_t number) {
    return " " + std::to_string(number);
}
inline std::string word(const std::optional<int>& number) {
    return number ? word(*number) : " -";
}

template <class Report>
std::string words(const std::optional<Parsed<Report>>& parsed) {
    const auto describe = [](const auto& report) {
        using Kind = std::decay_t<decltype(report)>;
        // A type's name ends in the length of its own name, that name, and "E".
        const std::string_view type = typeid(Kind).name();
        const auto name = type.substr(type.find_last_of("0123456789") + 1);
        auto kind = " " + std::string(name.substr(0, name.size() - 1));
        if constexpr (std::is_empty_v<Kind>) {
            return kind;
        } else if constexpr (std::is_same_v<Kind, outputs::Band>) {
            const auto& [item, band, filter, gain, frequency] = report;
            return kind + word(item) + word(band) + word(filter) + word(gain) + word(frequency);
        } else {
            const auto& [item, value] = report;
            return kind + word(item) + word(value);
        }
    };
    return parsed ? std::to_string(parsed->unit) + std::visit(describe, parsed->report) : "";
}

/// The screens: Zone, Output, Group, Override, Scene.
inline constexpr std::string_view SCREENS = "zogrs";

inline std::string byForms(char screen, std::string_view text) {
    return screen == 'z'   ? words(zones::parse(text))
           : screen == 'o' ? words(outputs::parse(text))
           : screen == 'g' ? words(groups::parse(text))
           : screen == 'r' ? words(overrides::parse(text))
                           : words(scenes::parse(text));
}

/// An expression, the screens that read it, and the report that it stands for. `members` tells what becomes
/// of the captures behind the unit: "i" an index, "n" a number, "s" a name; any other character is the
/// member.
struct Row {
    std::string_view screens;
    const char* pattern;
    const char* kind;
    std::string_view members;
    std::regex expression{pattern};
};

inline const std::vector<Row>& rows() {
    static const std::vector<Row> all{
        {"z", "^U([0-9])Z([0-9]{1,2})V(-?[0-9]{1,2})", "Volume", "in"},
        {"z", "^U([0-9])Z([0-9]{1,2})I([0-9]{1,2})", "Input", "ii"},
        {"z", "^U([0-9])Z([0-9]{1,2})M([0-1])", "Mute", "in"},
        {"z", "^U([0-9])Z([0-9]{1,2})LD([0-1])", "Loudness", "in"},
        {"z", "^U([0-9])Z([0-9]{1,2})BASS(-?[0-9]{1,2})", "Bass", "in"},
        {"z", "^U([0-9])Z([0-9]{1,2})TREB(-?[0-9]{1,2})", "Treble", "in"},
        {"z", R"~(^U([0-9])Z([0-9]{1,2})N"(.{1,16})")~", "ItemName", "is"},
        {"z", "^U([0-9])O([0-9]{1,2})Z([0-9]{1,2})", "OutputAssignment", "ii"},
        {"z", "^U([0-9])Z([0-9]{1,2})MV(-?[0-9]{1,2})", "MaxVolume", "in"},
        {"z", "^U([0-9])APPQ0", "EndOfState", ""},
        {"o", "^U([0-9])O([0-9]{1,2})V(-?[0-9]{1,2})", "Volume", "in"},
        {"o", "^U([0-9])O([0-9]{1,2})I([0-9]{1,2})", "Input", "ii"},
        {"o", "^U([0-9])O([0-9]{1,2})M([0-1])", "Mute", "in"},
        {"o", "^U([0-9])O([0-9]{1,2})P([0-1])", "Power", "in"},
        {"o", "^U([0-9])O([0-9]{1,2})B([1-7])BYPASS", "Band", "ii0--"},
        {"o", "^U([0-9])O([0-9]{1,2})B([1-7])HPF([0-9]{1,5})", "Band", "ii1-n"},
        {"o", "^U([0-9])O([0-9]{1,2})B([1-7])HS(-?[0-9]{1,2})F([0-9]{1,5})", "Band", "ii2nn"},
        {"o", "^U([0-9])O([0-9]{1,2})B([1-7])LPF([0-9]{1,5})", "Band", "ii3-n"},
        {"o", "^U([0-9])O([0-9]{1,2})B([1-7])LS(-?[0-9]{1,2})F([0-9]{1,5})", "Band", "ii4nn"},
        {"o", "^U([0-9])O([0-9]{1,2})B([1-7])P(-?[0-9]{1,2})F([0-9]{1,5})", "Band", "ii5nn"},
        {"o", R"~(^U([0-9])O([0-9]{1,2})N"(.{1,16})")~", "ItemName", "is"},
        {"o", "^U([0-9])O([0-9]{1,2})MV(-?[0-9]{1,2})", "MaxVolume", "in"},
        {"o", "^U([0-9])O([0-9]{1,2})MXTO(-?[0-9]{1,2})", "MaxTurnOnVolume", "in"},
        {"o", "^U([0-9])O([0-9]{1,2})MNTO(-?[0-9]{1,2})", "MinTurnOnVolume", "in"},
        {"o", "^U([0-9])O([0-9]{1,2})STEREO([0-1])", "Stereo", "in"},
        {"o", "^U([0-9])APPQ1", "EndOfState", ""},
        {"g", "^U([0-9])G([0-9]{1,2})V(-?[0-9]{1,2})", "Volume", "in"},
        {"g", "^U([0-9])G([0-9]{1,2})I([0-9]{1,2})", "Input", "ii"},
        {"g", "^U([0-9])G([0-9]{1,2})M([0-1])", "Mute", "in"},
        {"g", "^U([0-9])G([0-9]{1,2})P([0-1])", "Power", "in"},
        {"g", R"~(^U([0-9])G([0-9]{1,2})N"(.{1,16})")~", "ItemName", "is"},
        {"g", "^U([0-9])APPQ4", "EndOfState", ""},
        {"r", "^U([0-9])AO([0-9]{1,2})A([0-1])", "State", "in"},
        {"r", "^U([0-9])APPQ3", "EndOfState", ""},
        {"s", R"~(^U([0-9])SP([0-9]{1,2})N"(.{1,16})")~", "ItemName", "is"},
        {"s", "^U([0-9])APPQ2", "EndOfState", ""},
        {"zog", R"~(^U([0-9])I([0-9]{1,2})N"(.{1,16})")~", "InputName", "is"},
        {"zog", "^U([0-9])I([0-9]{1,2})STEREO([0-1])", "InputStereo", "in"},
    };
    return all;
}

/// The row of a screen that matches a text; null is none.
inline const Row* rowOf(char screen, std::string_view text, std::cmatch& match) {
    for (const auto& row : rows())
        // The letter behind the unit is compared first, because the engine is slow.
        if (row.screens.find(screen) != std::string_view::npos && text.size() > 2 &&
            text[2] == row.pattern[9] &&
            std::regex_search(text.data(), text.data() + text.size(), match, row.expression))
            return &row;
    return nullptr;
}

inline std::string byExpressions(char screen, std::string_view text) {
    std::cmatch match;
    const auto* row = rowOf(screen, text, match);
    if (!row)
        return "";
    auto all = match.str(1) + " " + row->kind;
    std::size_t group = 2;
    for (const char member : row->members)
        all += member == 'i'   ? word(std::stoi(match.str(group++)) - 1)
               : member == 'n' ? word(std::stoi(match.str(group++)))
               : member == 's' ? word(Name::fromLatin1(match.str(group++)))
                               : std::string{' ', member};
    return all;
}

/// Whether every screen's forms read a text as the expressions do.
inline bool agree(std::string_view text) {
    return std::all_of(SCREENS.begin(), SCREENS.end(),
                       [&](char screen) { return byForms(screen, text) == byExpressions(screen, text); });
}

} // namespace lumbra::oracle

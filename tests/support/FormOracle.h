#pragma once

#include "protocol/GroupMessages.h"
#include "protocol/OutputMessages.h"
#include "protocol/OverrideMessages.h"
#include "protocol/SceneMessages.h"
#include "protocol/ZoneMessages.h"

#include <algorithm>
#include <map>
#include <regex>
#include <typeinfo>

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

/// A form: the screens that read it, its expression behind the unit, and the report that it stands for. In the
/// expression "*" is what is the screen's item, "$" its query, "#" an item, "~" a signed number, "&" a frequency, "?" a flag and "@" a
/// name. `members` tells what becomes of its captures: "i" an index, "n" a number, "s" a name; any other character is
/// the member.
struct Row {
    std::string_view screens;
    std::string_view pattern, kind, members;
};

inline constexpr Row ROWS[] = {{"zog", "*#V~", "Volume", "in"},
                               {"zog", "*#I#", "Input", "ii"},
                               {"zog", "*#M?", "Mute", "in"},
                               {"og", "*#P?", "Power", "in"},
                               {"zog", "*#N\"@\"", "ItemName", "is"},
                               {"s", "SP#N\"@\"", "ItemName", "is"},
                               {"zo", "*#MV~", "MaxVolume", "in"},
                               {"z", "Z#LD?", "Loudness", "in"},
                               {"z", "Z#BASS~", "Bass", "in"},
                               {"z", "Z#TREB~", "Treble", "in"},
                               {"z", "O#Z#", "OutputAssignment", "ii"},
                               {"o", "O#B([1-7])BYPASS", "Band", "ii0--"},
                               {"o", "O#B([1-7])HPF&", "Band", "ii1-n"},
                               {"o", "O#B([1-7])HS~F&", "Band", "ii2nn"},
                               {"o", "O#B([1-7])LPF&", "Band", "ii3-n"},
                               {"o", "O#B([1-7])LS~F&", "Band", "ii4nn"},
                               {"o", "O#B([1-7])P~F&", "Band", "ii5nn"},
                               {"o", "O#MXTO~", "MaxTurnOnVolume", "in"},
                               {"o", "O#MNTO~", "MinTurnOnVolume", "in"},
                               {"o", "O#STEREO?", "Stereo", "in"},
                               {"r", "AO#A?", "State", "in"},
                               {"zog", "I#N\"@\"", "InputName", "is"},
                               {"zog", "I#STEREO?", "InputStereo", "in"},
                               {"zogrs", "APPQ$", "EndOfState", ""}};

inline std::regex expression(char screen, const Row& row) {
    std::string all = "^U([0-9])";
    for (const char c : row.pattern)
        all += c == '*'   ? std::string{"ZOG"[SCREENS.find(screen)]}
               : c == '$' ? std::string{"01432"[SCREENS.find(screen)]}
               : c == '#' ? "([0-9]{1,2})"
               : c == '~' ? "(-?[0-9]{1,2})"
               : c == '&' ? "([0-9]{1,5})"
               : c == '?' ? "([0-1])"
               : c == '@' ? "(.{1,16})"
                          : std::string{c};
    return std::regex(all);
}

inline std::string byExpressions(char screen, std::string_view text) {
    static std::map<std::pair<char, const Row*>, std::regex> expressions;
    for (const auto& row : ROWS) {
        // The letter behind the unit is compared first, because the engine is slow.
        if (row.screens.find(screen) == std::string_view::npos || text.size() < 3 ||
            (row.pattern[0] != '*' && row.pattern[0] != text[2]))
            continue;
        auto& compiled = expressions[{screen, &row}];
        if (compiled.mark_count() == 0)
            compiled = expression(screen, row);
        std::cmatch match;
        if (!std::regex_search(text.data(), text.data() + text.size(), match, compiled))
            continue;
        auto all = match.str(1) + " " + std::string(row.kind);
        std::size_t group = 2;
        for (const char member : row.members)
            all += member == 'i'   ? word(std::stoi(match.str(group++)) - 1)
                   : member == 'n' ? word(std::stoi(match.str(group++)))
                   : member == 's' ? word(Name::fromLatin1(match.str(group++)))
                                   : std::string{' ', member};
        return all;
    }
    return "";
}

} // namespace lumbra::oracle

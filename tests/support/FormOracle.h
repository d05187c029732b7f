#pragma once

#include "protocol/ReportParser.h"

#include <array>
#include <regex>
#include <string>
#include <utility>
#include <vector>

// A few forms with every kind of part, read by the matcher, and by regular expressions on the standard library's engine.
// A reading is put in words: the row, its numbers, its name. No reading is an empty text.
namespace lumbra::oracle {

inline constexpr const char* FORMS[] = {"U#Z##V-##",
                                        "U#Z##I##",
                                        "U#Z##MV-##",
                                        "U#Z##M[0-1]",
                                        R"(U#Z##N"*")",
                                        "U#O##B[1-7]BYPASS",
                                        "U#O##B[1-7]P-##F#####",
                                        "U#O##Z##",
                                        "U#APPQ4",
                                        R"(U#SP##N"*")",
                                        "U#A-#########B##"};

template <std::size_t... ROW>
consteval auto parsed(std::index_sequence<ROW...>) {
    return std::array<Form, sizeof...(ROW)>{{{FORMS[ROW]}...}};
}
inline constexpr auto PARSED = parsed(std::make_index_sequence<std::size(FORMS)>());

template <std::size_t ROW>
std::string words(const Captures& captures) {
    auto all = std::to_string(ROW);
    for (const auto& part : PARSED[ROW].parts)
        if (part.kind == FormPart::Kind::Number)
            all += " " + std::to_string(captures.number(part.numberIndex));
        else if (part.kind == FormPart::Kind::Name)
            all += " " + std::string(captures.nameBytes);
    return all;
}

template <std::size_t... ROW>
consteval auto rowsOf(std::index_sequence<ROW...>) {
    return std::array<ReportRow<std::string>, sizeof...(ROW)>{{{PARSED[ROW], words<ROW>}...}};
}
inline constexpr auto ROWS = rowsOf(std::make_index_sequence<std::size(FORMS)>());

inline std::string byForms(std::string_view text) {
    const auto parsed = parseReport<std::string, ROWS>(text);
    return parsed ? parsed->report : "";
}

/// What a form says, as an expression that captures its numbers and its name.
inline std::regex expressionOf(std::string_view form) {
    std::string all;
    for (std::size_t length = 0; !form.empty(); form.remove_prefix(length)) {
        const std::size_t sign = form[0] == '-' ? 1 : 0;
        length = std::min(form.find_first_not_of('#', sign), form.size());
        if (length > 0) {
            all += (sign ? "(-?[0-9]{1," : "([0-9]{1,") + std::to_string(length - sign) + "})";
        } else if (form[0] == '"') {
            all += "\"(.{1,16})\"";
            length = 3;
        } else {
            length = form[0] == '[' ? 5 : 1;
            const auto part = std::string(form.substr(0, length));
            all += length > 1 ? "(" + part + ")" : part;
        }
    }
    return std::regex(all);
}

inline std::string byExpressions(std::string_view text) {
    static const std::vector<std::regex> expressions = [] {
        std::vector<std::regex> all;
        for (const auto* form : FORMS)
            all.push_back(expressionOf(form));
        return all;
    }();
    for (std::size_t row = 0; row < expressions.size(); ++row) {
        std::cmatch match;
        if (!std::regex_search(text.data(), text.data() + text.size(), match, expressions[row],
                               std::regex_constants::match_continuous))
            continue;
        auto all = std::to_string(row);
        for (std::size_t group = 1; group < match.size(); ++group)
            all += " " + (*match[group].second == '"' ? match.str(group)
                                                      : std::to_string(std::stoi(match.str(group))));
        return all;
    }
    return "";
}

} // namespace lumbra::oracle

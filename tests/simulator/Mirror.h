#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <regex>
#include <string>
#include <vector>

namespace lumbra::sim {

/// What a faithful remote makes of a unit's reports: the last value of each, under the rules that a volume
/// means "not muted", that a volume above the reported maximum is refused, and that turning on unmutes and
/// moves the volume into the turn-on range. A report that such a remote would refuse fails the test.
class Mirror {
public:
    using Reports = std::vector<std::string>;

    void hear(const Reports& reports) {
        for (const std::string& report : reports)
            hear(report);
    }

    void hear(const std::string& report) {
        static const std::regex FORM(
            R"re(\(U1(?:([ZOG])(\d{1,2})(V|I|M|MV)(-?\d{1,2})|(Z)(\d{1,2})(LD|BASS|TREB)(-?\d{1,2})|)re"
            R"re(([OG])(\d{1,2})(P)([01])|(O)(\d{1,2})(MXTO|MNTO|Z)(-?\d{1,2})|([OI])(\d{1,2})(STEREO)([01])|)re"
            R"re((AO)(\d{1,2})(A)([01])|(O)(\d{1,2})(B[1-7])(BYPASS|[HL]PF\d{1,5}|(?:HS|LS|P)-?\d{1,2}F\d{1,5})|)re"
            R"re((Z|O|G|I|SP)(\d{1,2})(N)"([^()\r\n]{1,16})"|(APP)()(Q)([0-4]))\))re");
        std::smatch match;
        ASSERT_TRUE(std::regex_match(report, match, FORM)) << report;
        std::size_t first = 1;
        while (!match[first].matched)
            first += 4;
        const std::string item = match[first].str() + match[first + 1].str();
        const std::string code = match[first + 2];
        const std::string value = match[first + 3];
        if (code == "V") {
            ASSERT_GE(std::stoi(value), -80) << report;
            ASSERT_LE(std::stoi(value), number(item + "MV", 0)) << report;
            values_[item + "M"] = "0";
        }
        if (code == "MXTO" || code == "MNTO") {
            ASSERT_LE(std::stoi(value), number(item + "MV", -81)) << report << " before its maximum";
        }
        values_[item + code] = value;
        if (item[0] == 'O' && code == "P" && value == "1") {
            values_[item + "M"] = "0";
            const int volume = std::max(number(item + "V", -40), number(item + "MNTO", -80));
            values_[item + "V"] = std::to_string(std::min(volume, number(item + "MXTO", 0)));
        }
    }

    const std::map<std::string, std::string>& values() const { return values_; }

private:
    int number(const std::string& key, int otherwise) const {
        const auto found = values_.find(key);
        return found == values_.end() ? otherwise : std::stoi(found->second);
    }

    std::map<std::string, std::string> values_;
};

} // namespace lumbra::sim

#pragma once

#include "protocol/PatternSet.h"
#include "protocol/ReportBuffer.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace lumbra {

/// One kind of report: its pattern, written as the protocol has it, and what makes the typed report of its
/// groups.
template <class Report>
struct ReportPattern {
    std::string_view pattern;
    Report (*decode)(const Captures& captures);
};

/// Whether every pattern of a table can be read from what a report buffer keeps, and begins with the unit.
template <class Report>
constexpr bool isSound(std::span<const ReportPattern<Report>> table) {
    for (const auto& row : table)
        if (!row.pattern.starts_with(UNIT_PREFIX) || longestMatch(row.pattern) > ReportBuffer::CAPACITY)
            return false;
    return true;
}

/// Turns a report text into one of a family's typed reports. Main thread only.
template <class Report>
class ReportParser {
public:
    /// The rows in matching order; the table outlives the parser.
    explicit ReportParser(std::span<const ReportPattern<Report>> table)
        : table_(table), patterns_(patternsOf(table)) {}

    struct Parsed {
        int unit; ///< the reporting unit's digit
        Report report;
    };
    /// Nothing where `text` (the unit's bytes) matches no pattern. Ranges are not checked.
    std::optional<Parsed> parse(std::string_view text) const {
        const auto match = patterns_.match(text);
        if (match.pattern < 0)
            return std::nullopt;
        return Parsed{match.captures.number(1),
                      table_[static_cast<std::size_t>(match.pattern)].decode(match.captures)};
    }

private:
    static PatternSet patternsOf(std::span<const ReportPattern<Report>> table) {
        std::vector<std::string_view> patterns;
        for (const auto& row : table)
            patterns.push_back(row.pattern);
        return PatternSet(patterns);
    }

    std::span<const ReportPattern<Report>> table_;
    PatternSet patterns_;
};

} // namespace lumbra

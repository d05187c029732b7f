#include "protocol/GroupMessages.h"

#include <array>

namespace lumbra::groups {

namespace {

using namespace reports;
using Row = ReportPattern<Report>;

constexpr std::array ROWS{
    Row{R"(^U([0-9])G([0-9]{1,2})V(-?[0-9]{1,2}))",
        [](const Captures& c) -> Report {
            return Volume{c.index(2), c.number(3)};
        }},
    Row{R"(^U([0-9])G([0-9]{1,2})I([0-9]{1,2}))",
        [](const Captures& c) -> Report {
            return Input{c.index(2), c.index(3)};
        }},
    Row{R"(^U([0-9])G([0-9]{1,2})M([0-1]))",
        [](const Captures& c) -> Report {
            return Mute{c.index(2), c.flag(3)};
        }},
    Row{R"(^U([0-9])G([0-9]{1,2})P([0-1]))",
        [](const Captures& c) -> Report {
            return Power{c.index(2), c.flag(3)};
        }},
    Row{R"~(^U([0-9])G([0-9]{1,2})N"(.{1,16})")~",
        [](const Captures& c) -> Report {
            return ItemName{c.index(2), c.name(3)};
        }},
    inputNameRow<Report>(),
    inputStereoRow<Report>(),
    Row{R"(^U([0-9])APPQ4)", [](const Captures&) -> Report { return EndOfState{}; }},
};
static_assert(isSound<Report>(ROWS));

} // namespace

std::span<const ReportPattern<Report>> reportPatterns() {
    return ROWS;
}

} // namespace lumbra::groups

#include "protocol/ZoneMessages.h"

#include "protocol/Command.h"
#include "protocol/GroupMessages.h"

#include <array>

namespace lumbra::zones {

namespace {

using namespace reports;
using Row = ReportPattern<Report>;

constexpr std::array ROWS{
    Row{R"(^U([0-9])Z([0-9]{1,2})V(-?[0-9]{1,2}))",
        [](const Captures& c) -> Report {
            return Volume{c.index(2), c.number(3)};
        }},
    Row{R"(^U([0-9])Z([0-9]{1,2})I([0-9]{1,2}))",
        [](const Captures& c) -> Report {
            return Input{c.index(2), c.index(3)};
        }},
    Row{R"(^U([0-9])Z([0-9]{1,2})M([0-1]))",
        [](const Captures& c) -> Report {
            return Mute{c.index(2), c.flag(3)};
        }},
    Row{R"(^U([0-9])Z([0-9]{1,2})LD([0-1]))",
        [](const Captures& c) -> Report {
            return Loudness{c.index(2), c.flag(3)};
        }},
    Row{R"(^U([0-9])Z([0-9]{1,2})BASS(-?[0-9]{1,2}))",
        [](const Captures& c) -> Report {
            return Bass{c.index(2), c.number(3)};
        }},
    Row{R"(^U([0-9])Z([0-9]{1,2})TREB(-?[0-9]{1,2}))",
        [](const Captures& c) -> Report {
            return Treble{c.index(2), c.number(3)};
        }},
    inputNameRow<Report>(),
    Row{R"~(^U([0-9])Z([0-9]{1,2})N"(.{1,16})")~",
        [](const Captures& c) -> Report {
            return ItemName{c.index(2), c.name(3)};
        }},
    Row{R"(^U([0-9])O([0-9]{1,2})Z([0-9]{1,2}))",
        [](const Captures& c) -> Report {
            return OutputAssignment{c.index(2), c.index(3)};
        }},
    inputStereoRow<Report>(),
    Row{R"(^U([0-9])Z([0-9]{1,2})MV(-?[0-9]{1,2}))",
        [](const Captures& c) -> Report {
            return MaxVolume{c.index(2), c.number(3)};
        }},
    Row{R"(^U([0-9])APPQ0)", [](const Captures&) -> Report { return EndOfState{}; }},
};
static_assert(isSound<Report>(ROWS));

} // namespace

std::span<const ReportPattern<Report>> reportPatterns() {
    return ROWS;
}

std::string setBass(std::int64_t zone, std::int64_t level) {
    return detail::itemCommand("Z", zone, "BASS" + std::to_string(level));
}

std::string setTreble(std::int64_t zone, std::int64_t level) {
    return detail::itemCommand("Z", zone, "TREB" + std::to_string(level));
}

std::string setLoudness(std::int64_t zone, bool on) {
    return detail::itemCommand("Z", zone, on ? "LD1" : "LD0");
}

} // namespace lumbra::zones

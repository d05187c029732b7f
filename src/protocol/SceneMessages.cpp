#include "protocol/SceneMessages.h"

#include "protocol/Command.h"

#include <array>

namespace lumbra::scenes {

namespace {

using Row = ReportPattern<Report>;

constexpr std::array ROWS{
    Row{R"~(^U([0-9])SP([0-9]{1,2})N"(.{1,16})")~",
        [](const Captures& c) -> Report {
            return reports::ItemName{c.index(2), c.name(3)};
        }},
    Row{R"(^U([0-9])APPQ2)", [](const Captures&) -> Report { return reports::EndOfState{}; }},
};
static_assert(isSound<Report>(ROWS));

} // namespace

std::span<const ReportPattern<Report>> reportPatterns() {
    return ROWS;
}

std::string recall(std::int64_t scene) {
    return detail::itemCommand("SP", scene, "LOAD");
}

std::string store(std::int64_t scene) {
    return detail::itemCommand("SP", scene, "SAVE");
}

} // namespace lumbra::scenes

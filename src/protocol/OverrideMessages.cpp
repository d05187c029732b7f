#include "protocol/OverrideMessages.h"

#include "protocol/Command.h"

#include <array>

namespace lumbra::overrides {

namespace {

using Row = ReportPattern<Report>;

constexpr std::array ROWS{
    Row{R"(^U([0-9])AO([0-9]{1,2})A([0-1]))",
        [](const Captures& c) -> Report {
            return State{c.index(2), c.flag(3)};
        }},
    Row{R"(^U([0-9])APPQ3)", [](const Captures&) -> Report { return reports::EndOfState{}; }},
};
static_assert(isSound<Report>(ROWS));

} // namespace

std::span<const ReportPattern<Report>> reportPatterns() {
    return ROWS;
}

std::string operate(std::int64_t override_) {
    return detail::itemCommand("AO", override_, "A2");
}

} // namespace lumbra::overrides

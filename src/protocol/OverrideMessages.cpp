#include "protocol/OverrideMessages.h"

#include "protocol/Command.h"

namespace lumbra::overrides {

namespace {

using Row = ReportRow<Report>;

// In matching order.
constexpr Row ROWS[]{
    {"U#AO##A[0-1]", Row::flag<State>},
    {"U#APPQ3", Row::end},
};

} // namespace

std::optional<Parsed<Report>> parse(std::string_view text) {
    return parseReport<Report, ROWS>(text);
}

std::string operate(std::int64_t override_) {
    return detail::itemCommand("AO", override_, "A2");
}

} // namespace lumbra::overrides

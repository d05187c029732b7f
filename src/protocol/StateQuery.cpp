#include "protocol/StateQuery.h"

#include "protocol/Command.h"
#include "protocol/ReportParser.h"

namespace lumbra {

namespace {

// The end of any screen's answer; its value is the query's number.
constexpr ReportRow<int> ROWS[]{
    {"U#APPQ[0-4]", [](const Captures& captures) { return captures.number(1); }},
};

} // namespace

std::optional<StateQuery> readQuery(std::string_view command) {
    const auto parts = readCommand(command);
    if (!parts || parts->unit < 0 || parts->unit > 9)
        return {};
    for (int number = 0; number < StateQuery::COUNT; ++number)
        if (parts->body == queryState(number))
            return StateQuery{static_cast<int>(parts->unit), number};
    return {};
}

std::optional<StateQuery> readEndOfState(std::string_view report) {
    const auto parsed = parseReport<int, ROWS>(report);
    return parsed ? std::optional(StateQuery{parsed->unit, parsed->report}) : std::nullopt;
}

} // namespace lumbra

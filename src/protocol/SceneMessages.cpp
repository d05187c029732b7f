#include "protocol/SceneMessages.h"

#include "protocol/Command.h"

namespace lumbra::scenes {

namespace {

using Row = ReportRow<Report>;

// In matching order.
constexpr Row ROWS[]{
    {R"(U#SP##N"*")", Row::name<reports::ItemName>},
    {"U#APPQ2", Row::end},
};

} // namespace

std::optional<Parsed<Report>> parse(std::string_view text) {
    return parseReport<Report, ROWS>(text);
}

std::string recall(std::int64_t scene) {
    return detail::itemCommand("SP", scene, "LOAD");
}

std::string store(std::int64_t scene) {
    return detail::itemCommand("SP", scene, "SAVE");
}

} // namespace lumbra::scenes

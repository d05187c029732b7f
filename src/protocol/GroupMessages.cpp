#include "protocol/GroupMessages.h"

#include "protocol/InputMessages.h"

namespace lumbra::groups {

namespace {

using namespace reports;
using Row = ReportRow<Report>;

// In matching order.
constexpr Row ROWS[]{
    {"U#G##V-##", Row::number<Volume>},
    {"U#G##I##", Row::index<Input>},
    {"U#G##M[0-1]", Row::flag<Mute>},
    {"U#G##P[0-1]", Row::flag<Power>},
    {R"(U#G##N"*")", Row::name<ItemName>},
    INPUT_NAME<Report>,
    INPUT_STEREO<Report>,
    {"U#APPQ4", Row::end},
};

} // namespace

std::optional<Parsed<Report>> parse(std::string_view text) {
    return parseReport<Report, ROWS>(text);
}

} // namespace lumbra::groups

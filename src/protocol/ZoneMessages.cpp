#include "protocol/ZoneMessages.h"

#include "protocol/Command.h"
#include "protocol/InputMessages.h"

namespace lumbra::zones {

namespace {

using namespace reports;
using Row = ReportRow<Report>;

// In matching order.
constexpr Row ROWS[]{
    {"U#Z##V-##", Row::number<Volume>},
    {"U#Z##I##", Row::index<Input>},
    {"U#Z##M[0-1]", Row::flag<Mute>},
    {"U#Z##LD[0-1]", Row::flag<Loudness>},
    {"U#Z##BASS-##", Row::number<Bass>},
    {"U#Z##TREB-##", Row::number<Treble>},
    INPUT_NAME<Report>,
    {R"(U#Z##N"*")", Row::name<ItemName>},
    {"U#O##Z##", Row::index<OutputAssignment>},
    INPUT_STEREO<Report>,
    {"U#Z##MV-##", Row::number<MaxVolume>},
    {"U#APPQ0", Row::end},
};

} // namespace

std::optional<Parsed<Report>> parse(std::string_view text) {
    return parseReport<Report, ROWS>(text);
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

#include "protocol/OutputMessages.h"

#include "protocol/Command.h"
#include "protocol/InputMessages.h"

#include <array>
#include <cstddef>

namespace lumbra::outputs {

namespace {

using namespace reports;
using Row = ReportRow<Report>;

template <FilterType TYPE>
Report band(const Captures& c) {
    constexpr auto has = FILTERS[TYPE];
    return Band{c.index(1), c.index(2), TYPE, has.gain ? std::optional(c.number(3)) : std::nullopt,
                has.frequency ? std::optional(c.number(has.gain ? 4 : 3)) : std::nullopt};
}

// In matching order.
constexpr Row ROWS[]{
    {"U#O##V-##", Row::number<Volume>},
    {"U#O##I##", Row::index<Input>},
    {"U#O##M[0-1]", Row::flag<Mute>},
    {"U#O##P[0-1]", Row::flag<Power>},
    {"U#O##B[1-7]BYPASS", band<FILTER_BYPASS>},
    {"U#O##B[1-7]HPF#####", band<FILTER_HIGHPASS>},
    {"U#O##B[1-7]HS-##F#####", band<FILTER_HIGHSHELF>},
    {"U#O##B[1-7]LPF#####", band<FILTER_LOWPASS>},
    {"U#O##B[1-7]LS-##F#####", band<FILTER_LOWSHELF>},
    {"U#O##B[1-7]P-##F#####", band<FILTER_PARAMETRIC>},
    INPUT_NAME<Report>,
    {R"(U#O##N"*")", Row::name<ItemName>},
    {"U#O##MV-##", Row::number<MaxVolume>},
    {"U#O##MXTO-##", Row::number<MaxTurnOnVolume>},
    {"U#O##MNTO-##", Row::number<MinTurnOnVolume>},
    {"U#O##STEREO[0-1]", Row::flag<Stereo>},
    INPUT_STEREO<Report>,
    {"U#APPQ1", Row::end},
};

/// What names a filter on the wire, by type.
constexpr std::array<std::string_view, FILTERS.size()> FILTER_WORDS{"BYPASS", "HPF", "HS", "LPF", "LS", "P"};

} // namespace

std::optional<Parsed<Report>> parse(std::string_view text) {
    return parseReport<Report, ROWS>(text);
}

std::string setBand(std::int64_t output, std::int64_t band, FilterType type, std::int64_t gain,
                    std::int64_t frequency) {
    const auto index = static_cast<std::size_t>(type);
    std::string rest = "B" + std::to_string(band + 1);
    rest += FILTER_WORDS.at(index);
    if (FILTERS.at(index).gain)
        rest += std::to_string(gain) + "F";
    if (FILTERS.at(index).frequency)
        rest += std::to_string(frequency);
    return detail::itemCommand("O", output, rest);
}

} // namespace lumbra::outputs

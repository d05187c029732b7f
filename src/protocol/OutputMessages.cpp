#include "protocol/OutputMessages.h"

#include "model/Outputs.h"
#include "protocol/Command.h"
#include "protocol/InputMessages.h"

#include <array>
#include <cstddef>

namespace lumbra::outputs {

namespace {

using namespace reports;
using Row = ReportRow<Report>;

template <std::int64_t TYPE>
Report bypass(const Captures& c) {
    return Band{c.index(1), c.index(2), TYPE, std::nullopt, std::nullopt};
}
template <std::int64_t TYPE>
Report atFrequency(const Captures& c) {
    return Band{c.index(1), c.index(2), TYPE, std::nullopt, c.number(3)};
}
template <std::int64_t TYPE>
Report withGain(const Captures& c) {
    return Band{c.index(1), c.index(2), TYPE, c.number(3), c.number(4)};
}

// In matching order.
constexpr Row ROWS[]{
    {"U#O##V-##", Row::number<Volume>},
    {"U#O##I##", Row::index<Input>},
    {"U#O##M[0-1]", Row::flag<Mute>},
    {"U#O##P[0-1]", Row::flag<Power>},
    {"U#O##B[1-7]BYPASS", bypass<Outputs::FILTER_BYPASS>},
    {"U#O##B[1-7]HPF#####", atFrequency<Outputs::FILTER_HIGHPASS>},
    {"U#O##B[1-7]HS-##F#####", withGain<Outputs::FILTER_HIGHSHELF>},
    {"U#O##B[1-7]LPF#####", atFrequency<Outputs::FILTER_LOWPASS>},
    {"U#O##B[1-7]LS-##F#####", withGain<Outputs::FILTER_LOWSHELF>},
    {"U#O##B[1-7]P-##F#####", withGain<Outputs::FILTER_PARAMETRIC>},
    INPUT_NAME<Report>,
    {R"(U#O##N"*")", Row::name<ItemName>},
    {"U#O##MV-##", Row::number<MaxVolume>},
    {"U#O##MXTO-##", Row::number<MaxTurnOnVolume>},
    {"U#O##MNTO-##", Row::number<MinTurnOnVolume>},
    {"U#O##STEREO[0-1]", Row::flag<Stereo>},
    INPUT_STEREO<Report>,
    {"U#APPQ1", Row::end},
};

/// The keyword of a filter type on the wire, and the values that follow it.
struct FilterWord {
    std::string_view keyword;
    bool hasGain;
    bool hasFrequency;
};

constexpr std::array<FilterWord, 6> FILTER_WORDS{{
    {"BYPASS", false, false},
    {"HPF", false, true},
    {"HS", true, true},
    {"LPF", false, true},
    {"LS", true, true},
    {"P", true, true},
}};

} // namespace

std::optional<Parsed<Report>> parse(std::string_view text) {
    return parseReport<Report, ROWS>(text);
}

std::string setBand(std::int64_t output, std::int64_t band, std::int64_t type, std::int64_t gain,
                    std::int64_t frequency) {
    const auto& word = FILTER_WORDS.at(static_cast<std::size_t>(type));
    std::string rest = "B" + std::to_string(band + 1);
    rest += word.keyword;
    if (word.hasGain)
        rest += std::to_string(gain) + "F";
    if (word.hasFrequency)
        rest += std::to_string(frequency);
    return detail::itemCommand("O", output, rest);
}

} // namespace lumbra::outputs

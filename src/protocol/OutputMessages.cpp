#include "protocol/OutputMessages.h"

#include "model/Outputs.h"
#include "protocol/Command.h"
#include "protocol/GroupMessages.h"

#include <array>
#include <cstddef>

namespace lumbra::outputs {

namespace {

using namespace reports;
using Row = ReportPattern<Report>;

template <std::int64_t TYPE>
Report bypass(const Captures& c) {
    return Band{c.index(2), c.index(3), TYPE, std::nullopt, std::nullopt};
}
template <std::int64_t TYPE>
Report atFrequency(const Captures& c) {
    return Band{c.index(2), c.index(3), TYPE, std::nullopt, c.number(4)};
}
template <std::int64_t TYPE>
Report withGain(const Captures& c) {
    return Band{c.index(2), c.index(3), TYPE, c.number(4), c.number(5)};
}

constexpr std::array ROWS{
    Row{R"(^U([0-9])O([0-9]{1,2})V(-?[0-9]{1,2}))",
        [](const Captures& c) -> Report {
            return Volume{c.index(2), c.number(3)};
        }},
    Row{R"(^U([0-9])O([0-9]{1,2})I([0-9]{1,2}))",
        [](const Captures& c) -> Report {
            return Input{c.index(2), c.index(3)};
        }},
    Row{R"(^U([0-9])O([0-9]{1,2})M([0-1]))",
        [](const Captures& c) -> Report {
            return Mute{c.index(2), c.flag(3)};
        }},
    Row{R"(^U([0-9])O([0-9]{1,2})P([0-1]))",
        [](const Captures& c) -> Report {
            return Power{c.index(2), c.flag(3)};
        }},
    Row{R"(^U([0-9])O([0-9]{1,2})B([1-7])BYPASS)", bypass<Outputs::FILTER_BYPASS>},
    Row{R"(^U([0-9])O([0-9]{1,2})B([1-7])HPF([0-9]{1,5}))", atFrequency<Outputs::FILTER_HIGHPASS>},
    Row{R"(^U([0-9])O([0-9]{1,2})B([1-7])HS(-?[0-9]{1,2})F([0-9]{1,5}))",
        withGain<Outputs::FILTER_HIGHSHELF>},
    Row{R"(^U([0-9])O([0-9]{1,2})B([1-7])LPF([0-9]{1,5}))", atFrequency<Outputs::FILTER_LOWPASS>},
    Row{R"(^U([0-9])O([0-9]{1,2})B([1-7])LS(-?[0-9]{1,2})F([0-9]{1,5}))", withGain<Outputs::FILTER_LOWSHELF>},
    Row{R"(^U([0-9])O([0-9]{1,2})B([1-7])P(-?[0-9]{1,2})F([0-9]{1,5}))",
        withGain<Outputs::FILTER_PARAMETRIC>},
    inputNameRow<Report>(),
    Row{R"~(^U([0-9])O([0-9]{1,2})N"(.{1,16})")~",
        [](const Captures& c) -> Report {
            return ItemName{c.index(2), c.name(3)};
        }},
    Row{R"(^U([0-9])O([0-9]{1,2})MV(-?[0-9]{1,2}))",
        [](const Captures& c) -> Report {
            return MaxVolume{c.index(2), c.number(3)};
        }},
    Row{R"(^U([0-9])O([0-9]{1,2})MXTO(-?[0-9]{1,2}))",
        [](const Captures& c) -> Report {
            return MaxTurnOnVolume{c.index(2), c.number(3)};
        }},
    Row{R"(^U([0-9])O([0-9]{1,2})MNTO(-?[0-9]{1,2}))",
        [](const Captures& c) -> Report {
            return MinTurnOnVolume{c.index(2), c.number(3)};
        }},
    Row{R"(^U([0-9])O([0-9]{1,2})STEREO([0-1]))",
        [](const Captures& c) -> Report {
            return Stereo{c.index(2), c.flag(3)};
        }},
    inputStereoRow<Report>(),
    Row{R"(^U([0-9])APPQ1)", [](const Captures&) -> Report { return EndOfState{}; }},
};
static_assert(isSound<Report>(ROWS));

/// How a filter type is said on the wire.
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

std::span<const ReportPattern<Report>> reportPatterns() {
    return ROWS;
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

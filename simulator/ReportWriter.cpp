#include "simulator/ReportWriter.h"

#include <cstddef>

namespace lumbra::sim {

namespace {

/// Calls `visit(number, index)` for numbers 1 to `count`.
template <typename Visit>
void each(int count, Visit visit) {
    for (int number = 1; number <= count; ++number)
        visit(number, static_cast<std::size_t>(number - 1));
}

} // namespace

void ReportWriter::zones(const Setting& told, const Setting& now) {
    each(ZONES, [&](int number, std::size_t index) {
        const Zone& before = told.zones[index];
        const Zone& zone = now.zones[index];
        field("Z", number, "I", before.input, zone.input);
        volumeAndMute("Z", number, before, zone, false);
        field("Z", number, "LD", before.loudness, zone.loudness);
        field("Z", number, "BASS", before.bass, zone.bass);
        field("Z", number, "TREB", before.treble, zone.treble);
    });
}

void ReportWriter::outputs(const Setting& told, const Setting& now) {
    each(OUTPUTS, [&](int number, std::size_t index) {
        const Output& before = told.outputs[index];
        const Output& output = now.outputs[index];
        field("O", number, "P", before.power, output.power);
        field("O", number, "I", before.input, output.input);
        volumeAndMute("O", number, before, output, before.power != output.power && output.power == 1);
        each(BANDS, [&](int bandNumber, std::size_t bandIndex) {
            if (before.bands[bandIndex] != output.bands[bandIndex])
                band(number, bandNumber, output.bands[bandIndex]);
        });
    });
}

void ReportWriter::groups(const Setting& told, const Setting& now) {
    each(GROUPS, [&](int number, std::size_t index) {
        const Group& before = told.groups[index];
        const Group& group = now.groups[index];
        field("G", number, "P", before.power, group.power);
        field("G", number, "I", before.input, group.input);
        volumeAndMute("G", number, before, group, false);
    });
}

void ReportWriter::overrides(const std::array<int, OVERRIDES>& told, const std::array<int, OVERRIDES>& now) {
    each(OVERRIDES,
         [&](int number, std::size_t index) { field("AO", number, "A", told[index], now[index]); });
}

void ReportWriter::assignments() {
    each(OUTPUTS,
         [&](int number, std::size_t index) { value("O", number, "Z", house_.outputs[index].zone + 1); });
}

void ReportWriter::inputs() {
    each(INPUTS, [&](int number, std::size_t index) {
        name("I", number, house_.inputs[index].name);
        value("I", number, "STEREO", house_.inputs[index].stereo);
    });
}

void ReportWriter::zoneFacts() {
    each(ZONES, [&](int number, std::size_t index) {
        name("Z", number, house_.zones[index].name);
        value("Z", number, "MV", house_.zones[index].maximum_volume);
    });
}

void ReportWriter::outputFacts() {
    each(OUTPUTS, [&](int number, std::size_t index) {
        const OutputFacts& facts = house_.outputs[index];
        name("O", number, facts.name);
        value("O", number, "STEREO", facts.stereo);
        value("O", number, "MV", facts.maximum_volume);
        value("O", number, "MXTO", facts.maximum_turn_on_volume);
        value("O", number, "MNTO", facts.minimum_turn_on_volume);
    });
}

void ReportWriter::groupNames() {
    each(GROUPS, [&](int number, std::size_t index) { name("G", number, house_.groups[index].name); });
}

void ReportWriter::sceneNames() {
    each(SCENES, [&](int number, std::size_t index) { name("SP", number, house_.scene_names[index]); });
}

void ReportWriter::endOfAnswer(int query) {
    add("APPQ" + std::to_string(query));
}

template <typename Item>
void ReportWriter::volumeAndMute(std::string_view family, int number, const Item& told, const Item& now,
                                 bool always) {
    const bool tellVolume = always || told.volume != now.volume;
    if (tellVolume)
        value(family, number, "V", now.volume);
    const int believed = tellVolume && told.mute != UNKNOWN ? 0 : told.mute;
    field(family, number, "M", believed, now.mute);
}

void ReportWriter::field(std::string_view family, int number, std::string_view code, int told, int now) {
    if (told != now)
        value(family, number, code, now);
}

void ReportWriter::value(std::string_view family, int number, std::string_view code, int value) {
    add(std::string(family) + std::to_string(number) + std::string(code) + std::to_string(value));
}

void ReportWriter::name(std::string_view family, int number, const std::string& name) {
    add(std::string(family) + std::to_string(number) + "N\"" + name + '"');
}

void ReportWriter::band(int output, int number, const Band& band) {
    static constexpr const char* WORDS[] = {"BYPASS", "HPF", "HS", "LPF", "LS", "P"}; // by filter
    const std::string text = "O" + std::to_string(output) + "B" + std::to_string(number) +
                             WORDS[static_cast<std::size_t>(band.filter)];
    const std::string frequency = std::to_string(band.frequency);
    if (band.filter == BYPASS)
        add(text);
    else if (band.filter == HIGH_PASS || band.filter == LOW_PASS)
        add(text + frequency);
    else
        add(text + std::to_string(band.gain) + "F" + frequency);
}

void ReportWriter::add(std::string_view text) {
    reports_.push_back("(U" + std::to_string(unit_) + std::string(text) + ")");
}

} // namespace lumbra::sim

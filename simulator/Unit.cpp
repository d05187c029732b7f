#include "simulator/Unit.h"

#include "simulator/ReportWriter.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <utility>

namespace lumbra::sim {

namespace {

constexpr Range ZONE{1, ZONES};
constexpr Range OUTPUT{1, OUTPUTS};
constexpr Range BAND{1, BANDS};
constexpr Range GROUP{1, GROUPS};
constexpr Range OVERRIDE{1, OVERRIDES};
constexpr Range SCENE{1, SCENES};
constexpr Range QUERY{0, 4};

template <typename Items>
auto& at(Items& items, int index) {
    return items[static_cast<std::size_t>(index)];
}

/// A setting of which nothing is known: compared with it, everything is news.
Setting unknownSetting() {
    constexpr Band NO_BAND{UNKNOWN, UNKNOWN, UNKNOWN};
    Setting setting;
    setting.zones.fill({UNKNOWN, UNKNOWN, UNKNOWN, UNKNOWN, UNKNOWN, UNKNOWN});
    Output output{UNKNOWN, UNKNOWN, UNKNOWN, UNKNOWN, {}};
    output.bands.fill(NO_BAND);
    setting.outputs.fill(output);
    setting.groups.fill({UNKNOWN, UNKNOWN, UNKNOWN, UNKNOWN});
    return setting;
}

} // namespace

// Each handler changes what was commanded and forgets that the addressed value was told.
const Unit::Command Unit::COMMANDS[] = {
    {{"Z%V%", {ZONE, VOLUME}},
     [](Unit& unit, const Numbers& n, Response&) {
         unit.setZoneVolume(n[0] - 1, n[1]);
         at(unit.told_.setting.zones, n[0] - 1).volume = UNKNOWN;
     }},
    {{"Z%I%", {ZONE, INPUT}},
     [](Unit& unit, const Numbers& n, Response&) {
         unit.setZone(n[0] - 1, &Zone::input, &Output::input, n[1]);
         at(unit.told_.setting.zones, n[0] - 1).input = UNKNOWN;
     }},
    {{"Z%M%", {ZONE, FLAG}},
     [](Unit& unit, const Numbers& n, Response&) {
         unit.setZone(n[0] - 1, &Zone::mute, &Output::mute, n[1]);
         at(unit.told_.setting.zones, n[0] - 1).mute = UNKNOWN;
     }},
    {{"Z%LD%", {ZONE, FLAG}},
     [](Unit& unit, const Numbers& n, Response&) {
         at(unit.memory_.setting.zones, n[0] - 1).loudness = n[1];
         at(unit.told_.setting.zones, n[0] - 1).loudness = UNKNOWN;
     }},
    {{"Z%BASS%", {ZONE, TONE}},
     [](Unit& unit, const Numbers& n, Response&) {
         at(unit.memory_.setting.zones, n[0] - 1).bass = n[1];
         at(unit.told_.setting.zones, n[0] - 1).bass = UNKNOWN;
     }},
    {{"Z%TREB%", {ZONE, TONE}},
     [](Unit& unit, const Numbers& n, Response&) {
         at(unit.memory_.setting.zones, n[0] - 1).treble = n[1];
         at(unit.told_.setting.zones, n[0] - 1).treble = UNKNOWN;
     }},
    {{"O%V%", {OUTPUT, VOLUME}},
     [](Unit& unit, const Numbers& n, Response&) {
         unit.setOutputVolume(n[0] - 1, n[1]);
         at(unit.told_.setting.outputs, n[0] - 1).volume = UNKNOWN;
     }},
    {{"O%I%", {OUTPUT, INPUT}},
     [](Unit& unit, const Numbers& n, Response&) {
         at(unit.memory_.setting.outputs, n[0] - 1).input = n[1];
         at(unit.told_.setting.outputs, n[0] - 1).input = UNKNOWN;
     }},
    {{"O%M%", {OUTPUT, FLAG}},
     [](Unit& unit, const Numbers& n, Response&) {
         at(unit.memory_.setting.outputs, n[0] - 1).mute = n[1];
         at(unit.told_.setting.outputs, n[0] - 1).mute = UNKNOWN;
     }},
    {{"O%P%", {OUTPUT, FLAG}},
     [](Unit& unit, const Numbers& n, Response&) {
         unit.setOutputPower(n[0] - 1, n[1]);
         at(unit.told_.setting.outputs, n[0] - 1).power = UNKNOWN;
     }},
    {{"O%B%BYPASS", {OUTPUT, BAND}},
     [](Unit& unit, const Numbers& n, Response&) {
         Band band = at(at(unit.memory_.setting.outputs, n[0] - 1).bands, n[1] - 1);
         band.filter = BYPASS;
         unit.setBand(n[0] - 1, n[1] - 1, band);
     }},
    {{"O%B%HPF%", {OUTPUT, BAND, FREQUENCY}},
     [](Unit& unit, const Numbers& n, Response&) {
         const int gain = at(at(unit.memory_.setting.outputs, n[0] - 1).bands, n[1] - 1).gain;
         unit.setBand(n[0] - 1, n[1] - 1, {HIGH_PASS, n[2], gain});
     }},
    {{"O%B%LPF%", {OUTPUT, BAND, FREQUENCY}},
     [](Unit& unit, const Numbers& n, Response&) {
         const int gain = at(at(unit.memory_.setting.outputs, n[0] - 1).bands, n[1] - 1).gain;
         unit.setBand(n[0] - 1, n[1] - 1, {LOW_PASS, n[2], gain});
     }},
    {{"O%B%HS%F%", {OUTPUT, BAND, GAIN, FREQUENCY}},
     [](Unit& unit, const Numbers& n, Response&) {
         unit.setBand(n[0] - 1, n[1] - 1, {HIGH_SHELF, n[3], n[2]});
     }},
    {{"O%B%LS%F%", {OUTPUT, BAND, GAIN, FREQUENCY}},
     [](Unit& unit, const Numbers& n, Response&) {
         unit.setBand(n[0] - 1, n[1] - 1, {LOW_SHELF, n[3], n[2]});
     }},
    {{"O%B%P%F%", {OUTPUT, BAND, GAIN, FREQUENCY}},
     [](Unit& unit, const Numbers& n, Response&) {
         unit.setBand(n[0] - 1, n[1] - 1, {PARAMETRIC, n[3], n[2]});
     }},
    {{"G%V%", {GROUP, VOLUME}},
     [](Unit& unit, const Numbers& n, Response&) {
         unit.setGroup(n[0] - 1, &Group::volume, n[1]);
         at(unit.memory_.setting.groups, n[0] - 1).mute = 0;
         for (const int zone : at(unit.house_.groups, n[0] - 1).zones)
             unit.setZoneVolume(zone, n[1]);
     }},
    {{"G%I%", {GROUP, INPUT}},
     [](Unit& unit, const Numbers& n, Response&) {
         unit.setGroup(n[0] - 1, &Group::input, n[1]);
         for (const int zone : at(unit.house_.groups, n[0] - 1).zones)
             unit.setZone(zone, &Zone::input, &Output::input, n[1]);
     }},
    {{"G%M%", {GROUP, FLAG}},
     [](Unit& unit, const Numbers& n, Response&) {
         unit.setGroup(n[0] - 1, &Group::mute, n[1]);
         for (const int zone : at(unit.house_.groups, n[0] - 1).zones)
             unit.setZone(zone, &Zone::mute, &Output::mute, n[1]);
     }},
    {{"G%P%", {GROUP, FLAG}},
     [](Unit& unit, const Numbers& n, Response&) {
         unit.setGroup(n[0] - 1, &Group::power, n[1]);
         for (const int zone : at(unit.house_.groups, n[0] - 1).zones)
             unit.eachOutputOf(zone, [&](int output) { unit.setOutputPower(output, n[1]); });
     }},
    {{"AO%A2", {OVERRIDE}},
     [](Unit& unit, const Numbers& n, Response&) {
         int& state = at(unit.memory_.overrides, n[0] - 1);
         state = 1 - state;
     }},
    {{"SP%LOAD", {SCENE}},
     [](Unit& unit, const Numbers& n, Response&) {
         unit.memory_.setting = at(unit.memory_.scenes, n[0] - 1);
     }},
    {{"SP%SAVE", {SCENE}},
     [](Unit& unit, const Numbers& n, Response&) {
         at(unit.memory_.scenes, n[0] - 1) = unit.memory_.setting;
     }},
    {{"APPQ%", {QUERY}},
     [](Unit& unit, const Numbers& n, Response& response) {
         response = {Response::To::ASKER, unit.answer(n[0])};
     }},
    {{"SERIAL%", {FLAG}}, [](Unit&, const Numbers&, Response&) {}},
};

Unit::Unit(int number, House house) : number_(number), house_(std::move(house)) {
    restore(house_.memory);
}

void Unit::restore(const Memory& memory) {
    memory_ = memory;
    holdToLimits(memory_.setting);
    for (Setting& scene : memory_.scenes)
        holdToLimits(scene);
    told_.setting = inForce();
    told_.overrides = memory_.overrides;
}

Response Unit::execute(std::string_view body) {
    for (const Command& command : COMMANDS) {
        const std::optional<Numbers> numbers = command.pattern.match(body);
        if (!numbers)
            continue;
        Response response;
        command.run(*this, *numbers, response);
        if (response.to == Response::To::NOBODY)
            response.reports = takeChanges();
        if (response.to == Response::To::NOBODY && !response.reports.empty())
            response.to = Response::To::EVERYBODY;
        return response;
    }
    return {Response::To::NOT_A_COMMAND, {}};
}

std::vector<std::string> Unit::answer(int query) const {
    ReportWriter writer(number_, house_);
    const Setting now = inForce();
    switch (query) {
    case 0:
        writer.assignments();
        writer.inputs();
        writer.zoneFacts();
        writer.zones(unknownSetting(), now);
        break;
    case 1:
        writer.inputs();
        writer.outputFacts();
        writer.outputs(unknownSetting(), now);
        break;
    case 2:
        writer.sceneNames();
        break;
    case 3: {
        std::array<int, OVERRIDES> unknown{};
        unknown.fill(UNKNOWN);
        writer.overrides(unknown, memory_.overrides);
        break;
    }
    default:
        writer.inputs();
        writer.groupNames();
        writer.groups(unknownSetting(), now);
        break;
    }
    writer.endOfAnswer(query);
    return writer.take();
}

std::vector<std::string> Unit::takeChanges() {
    ReportWriter writer(number_, house_);
    const Setting now = inForce();
    writer.overrides(told_.overrides, memory_.overrides);
    writer.groups(told_.setting, now);
    writer.zones(told_.setting, now);
    writer.outputs(told_.setting, now);
    told_.setting = now;
    told_.overrides = memory_.overrides;
    return writer.take();
}

void Unit::setZoneVolume(int zone, int volume) {
    Zone& target = at(memory_.setting.zones, zone);
    target.volume = std::min(volume, at(house_.zones, zone).maximum_volume);
    target.mute = 0;
    eachOutputOf(zone, [&](int output) { setOutputVolume(output, target.volume); });
}

void Unit::setOutputVolume(int output, int volume) {
    Output& target = at(memory_.setting.outputs, output);
    target.volume = std::min(volume, at(house_.outputs, output).maximum_volume);
    target.mute = 0;
}

void Unit::setOutputPower(int output, int power) {
    Output& target = at(memory_.setting.outputs, output);
    if (power == 1 && target.power == 0) {
        const OutputFacts& facts = at(house_.outputs, output);
        target.volume = std::clamp(target.volume, facts.minimum_turn_on_volume, facts.maximum_turn_on_volume);
        target.mute = 0;
    }
    target.power = power;
}

void Unit::setZone(int zone, int Zone::*zoneField, int Output::*outputField, int value) {
    at(memory_.setting.zones, zone).*zoneField = value;
    eachOutputOf(zone, [&](int output) { at(memory_.setting.outputs, output).*outputField = value; });
}

void Unit::setGroup(int group, int Group::*field, int value) {
    at(memory_.setting.groups, group).*field = value;
    at(told_.setting.groups, group).*field = UNKNOWN;
}

void Unit::setBand(int output, int band, const Band& value) {
    at(at(memory_.setting.outputs, output).bands, band) = value;
    at(at(told_.setting.outputs, output).bands, band).filter = UNKNOWN;
}

template <typename Visit>
void Unit::eachOutputOf(int zone, Visit visit) const {
    for (int output = 0; output < OUTPUTS; ++output)
        if (at(house_.outputs, output).zone == zone)
            visit(output);
}

void Unit::holdToLimits(Setting& setting) const {
    for (int zone = 0; zone < ZONES; ++zone) {
        int& volume = at(setting.zones, zone).volume;
        volume = std::min(volume, at(house_.zones, zone).maximum_volume);
    }
    for (int output = 0; output < OUTPUTS; ++output) {
        int& volume = at(setting.outputs, output).volume;
        volume = std::min(volume, at(house_.outputs, output).maximum_volume);
    }
}

Setting Unit::inForce() const {
    Setting setting = memory_.setting;
    for (int index = 0; index < OVERRIDES; ++index)
        if (at(memory_.overrides, index) == 1)
            apply(at(house_.overrides, index), setting);
    holdToLimits(setting);
    return setting;
}

void Unit::apply(const OverrideFacts& facts, Setting& setting) const {
    const auto hold = [](int& value, int held) {
        if (held != UNKNOWN)
            value = held;
    };
    const auto holdLevels = [&](auto& item) {
        hold(item.input, facts.input);
        hold(item.volume, facts.volume);
        if (facts.volume_ceiling != UNKNOWN)
            item.volume = std::min(item.volume, facts.volume_ceiling);
        hold(item.mute, facts.mute);
    };
    for (const int index : facts.zones) {
        Zone& zone = at(setting.zones, index);
        holdLevels(zone);
        if (facts.flat)
            zone.bass = zone.treble = zone.loudness = 0;
        eachOutputOf(index, [&](int number) {
            Output& output = at(setting.outputs, number);
            holdLevels(output);
            hold(output.power, facts.power);
            if (facts.flat)
                for (Band& band : output.bands)
                    band.filter = BYPASS;
        });
    }
}

} // namespace lumbra::sim

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

/// A setting in which every value is UNKNOWN: compared with it, everything has changed.
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

/// A command pattern and its handler.
struct Unit::Command {
    CommandPattern pattern;
    void (*run)(Unit&, const CommandPattern::Numbers&, Response&);
};

/// Each handler changes the commanded value and marks it as not reported yet.
struct Unit::Handlers {
    using Numbers = CommandPattern::Numbers;

    static void zoneVolume(Unit& unit, const Numbers& n, Response&) {
        unit.setZoneVolume(n[0] - 1, n[1]);
        at(unit.told_.setting.zones, n[0] - 1).volume = UNKNOWN;
    }

    template <int Zone::*FIELD, int Output::*OUTPUT_FIELD>
    static void zoneAndOutputs(Unit& unit, const Numbers& n, Response&) {
        unit.setZone(n[0] - 1, FIELD, OUTPUT_FIELD, n[1]);
        at(unit.told_.setting.zones, n[0] - 1).*FIELD = UNKNOWN;
    }

    template <int Zone::*FIELD>
    static void zone(Unit& unit, const Numbers& n, Response&) {
        at(unit.memory_.setting.zones, n[0] - 1).*FIELD = n[1];
        at(unit.told_.setting.zones, n[0] - 1).*FIELD = UNKNOWN;
    }

    static void outputVolume(Unit& unit, const Numbers& n, Response&) {
        unit.setOutputVolume(n[0] - 1, n[1]);
        at(unit.told_.setting.outputs, n[0] - 1).volume = UNKNOWN;
    }

    static void outputPower(Unit& unit, const Numbers& n, Response&) {
        unit.setOutputPower(n[0] - 1, n[1]);
        at(unit.told_.setting.outputs, n[0] - 1).power = UNKNOWN;
    }

    template <int Output::*FIELD>
    static void output(Unit& unit, const Numbers& n, Response&) {
        at(unit.memory_.setting.outputs, n[0] - 1).*FIELD = n[1];
        at(unit.told_.setting.outputs, n[0] - 1).*FIELD = UNKNOWN;
    }

    /// A value that the command of the filter type lacks stays unchanged.
    template <Filter FILTER>
    static void band(Unit& unit, const Numbers& n, Response&) {
        Band& band = at(at(unit.memory_.setting.outputs, n[0] - 1).bands, n[1] - 1);
        band.filter = FILTER;
        if (FILTER == HIGH_PASS || FILTER == LOW_PASS) {
            band.frequency = n[2];
        } else if (FILTER != BYPASS) {
            band.gain = n[2];
            band.frequency = n[3];
        }
        at(at(unit.told_.setting.outputs, n[0] - 1).bands, n[1] - 1).filter = UNKNOWN;
    }

    template <int Group::*FIELD, typename SetZone>
    static void group(Unit& unit, const Numbers& n, SetZone setZone) {
        at(unit.memory_.setting.groups, n[0] - 1).*FIELD = n[1];
        at(unit.told_.setting.groups, n[0] - 1).*FIELD = UNKNOWN;
        for (const int zone : at(unit.house_.groups, n[0] - 1).zones)
            setZone(zone);
    }

    static void groupVolume(Unit& unit, const Numbers& n, Response&) {
        at(unit.memory_.setting.groups, n[0] - 1).mute = 0;
        group<&Group::volume>(unit, n, [&](int zone) { unit.setZoneVolume(zone, n[1]); });
    }

    static void groupPower(Unit& unit, const Numbers& n, Response&) {
        group<&Group::power>(unit, n, [&](int zone) {
            unit.eachOutputOf(zone, [&](int output) { unit.setOutputPower(output, n[1]); });
        });
    }

    template <int Group::*FIELD, int Zone::*ZONE_FIELD, int Output::*OUTPUT_FIELD>
    static void groupAndZones(Unit& unit, const Numbers& n, Response&) {
        group<FIELD>(unit, n, [&](int zone) { unit.setZone(zone, ZONE_FIELD, OUTPUT_FIELD, n[1]); });
    }

    static void override(Unit& unit, const Numbers& n, Response&) {
        int& state = at(unit.memory_.overrides, n[0] - 1);
        state = 1 - state;
    }

    static void loadScene(Unit& unit, const Numbers& n, Response&) {
        unit.memory_.setting = at(unit.memory_.scenes, n[0] - 1);
    }

    static void saveScene(Unit& unit, const Numbers& n, Response&) {
        at(unit.memory_.scenes, n[0] - 1) = unit.memory_.setting;
    }

    static void query(Unit& unit, const Numbers& n, Response& response) {
        response = {Response::To::ASKER, unit.answer(n[0])};
    }

    static void serial(Unit&, const Numbers&, Response&) {}
};

const Unit::Command Unit::COMMANDS[] = {
    {{"Z%V%", {ZONE, VOLUME}}, Handlers::zoneVolume},
    {{"Z%I%", {ZONE, INPUT}}, Handlers::zoneAndOutputs<&Zone::input, &Output::input>},
    {{"Z%M%", {ZONE, FLAG}}, Handlers::zoneAndOutputs<&Zone::mute, &Output::mute>},
    {{"Z%LD%", {ZONE, FLAG}}, Handlers::zone<&Zone::loudness>},
    {{"Z%BASS%", {ZONE, TONE}}, Handlers::zone<&Zone::bass>},
    {{"Z%TREB%", {ZONE, TONE}}, Handlers::zone<&Zone::treble>},
    {{"O%V%", {OUTPUT, VOLUME}}, Handlers::outputVolume},
    {{"O%I%", {OUTPUT, INPUT}}, Handlers::output<&Output::input>},
    {{"O%M%", {OUTPUT, FLAG}}, Handlers::output<&Output::mute>},
    {{"O%P%", {OUTPUT, FLAG}}, Handlers::outputPower},
    {{"O%B%BYPASS", {OUTPUT, BAND}}, Handlers::band<BYPASS>},
    {{"O%B%HPF%", {OUTPUT, BAND, FREQUENCY}}, Handlers::band<HIGH_PASS>},
    {{"O%B%HS%F%", {OUTPUT, BAND, GAIN, FREQUENCY}}, Handlers::band<HIGH_SHELF>},
    {{"O%B%LPF%", {OUTPUT, BAND, FREQUENCY}}, Handlers::band<LOW_PASS>},
    {{"O%B%LS%F%", {OUTPUT, BAND, GAIN, FREQUENCY}}, Handlers::band<LOW_SHELF>},
    {{"O%B%P%F%", {OUTPUT, BAND, GAIN, FREQUENCY}}, Handlers::band<PARAMETRIC>},
    {{"G%V%", {GROUP, VOLUME}}, Handlers::groupVolume},
    {{"G%I%", {GROUP, INPUT}}, Handlers::groupAndZones<&Group::input, &Zone::input, &Output::input>},
    {{"G%M%", {GROUP, FLAG}}, Handlers::groupAndZones<&Group::mute, &Zone::mute, &Output::mute>},
    {{"G%P%", {GROUP, FLAG}}, Handlers::groupPower},
    {{"AO%A2", {OVERRIDE}}, Handlers::override},
    {{"SP%LOAD", {SCENE}}, Handlers::loadScene},
    {{"SP%SAVE", {SCENE}}, Handlers::saveScene},
    {{"APPQ%", {QUERY}}, Handlers::query},
    {{"SERIAL%", {FLAG}}, Handlers::serial},
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
        const auto numbers = command.pattern.match(body);
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

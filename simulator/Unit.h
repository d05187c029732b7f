#pragma once

#include "simulator/CommandPattern.h"
#include "simulator/House.h"
#include "simulator/UnitState.h"

#include <string>
#include <string_view>
#include <vector>

namespace lumbra::sim {

/// What a command leads to. Reports are whole, round brackets included, in the order in which they are sent.
struct Response {
    enum class To {
        NOBODY,        ///< understood, nothing to say
        ASKER,         ///< the answer to a state query
        EVERYBODY,     ///< changes, which every client is told
        NOT_A_COMMAND, ///< malformed or out of range: the unit did nothing
    };

    To to = To::NOBODY;
    std::vector<std::string> reports;
};

/// A whole unit, without any network: it carries out command bodies and tells what is reported.
///
/// A zone leads its outputs, and a group its zones: volume, input and mute are carried on, power reaches the
/// outputs. A volume is held to the maximum of whatever takes it, and unmutes it. An output that a command
/// turns on comes on unmuted, within its turn-on range. An override holds what it sets until it goes off;
/// commands to what it holds are kept and show then. A scene stores and recalls everything but the overrides.
///
/// Not thread-safe.
class Unit {
public:
    explicit Unit(int number = 1, House house = exampleHouse());

    /// The digit that the unit answers to, 1 to 4.
    int number() const { return number_; }
    const House& house() const { return house_; }

    /// Carries out one command, given by its body ("Z3V-35"). What was addressed is always reported, changed
    /// or not, so that a client whose command was held back learns the truth.
    Response execute(std::string_view body);

    /// The answer to state query 0 to 4, end mark last.
    std::vector<std::string> answer(int query) const;

    const Memory& memory() const { return memory_; }

    /// Takes a memory over; volumes are held to this unit's limits. Clients are not told.
    void restore(const Memory& memory);

private:
    struct Command;
    struct Handlers;
    static const Command COMMANDS[];

    // Zones and outputs are 0-based below.
    void setZoneVolume(int zone, int volume);
    void setOutputVolume(int output, int volume);
    void setOutputPower(int output, int power);
    void setZone(int zone, int Zone::*zoneField, int Output::*outputField, int value);
    void holdToLimits(Setting& setting) const;

    template <typename Visit>
    void eachOutputOf(int zone, Visit visit) const;

    /// The setting in force: what was commanded, under the overrides that are on.
    Setting inForce() const;
    void apply(const OverrideFacts& facts, Setting& setting) const;
    std::vector<std::string> takeChanges();

    int number_;
    House house_;
    Memory memory_;
    Memory told_; // scenes unused
};

} // namespace lumbra::sim

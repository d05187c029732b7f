#pragma once

#include "simulator/CommandPattern.h"
#include "simulator/House.h"
#include "simulator/UnitState.h"

#include <string>
#include <string_view>
#include <vector>

namespace lumbra::sim {

/// The response to a command. Reports are complete, parentheses included, in the order in which they are
/// sent.
struct Response {
    enum class To {
        NOBODY,        ///< accepted, no reports
        ASKER,         ///< the answer to a state query
        EVERYBODY,     ///< changes, which are sent to every client
        NOT_A_COMMAND, ///< malformed or out of range: the unit did nothing
    };

    To to = To::NOBODY;
    std::vector<std::string> reports;
};

/// A complete unit without a network: it executes command bodies and returns the reports.
///
/// A zone controls its outputs, and a group its zones: volume, input and mute are passed on, power only to
/// the outputs. A volume is limited to the maximum of each zone and output that takes it, and unmutes it. An
/// output that a command turns on is unmuted and within its turn-on range. An override enforces what it sets
/// while it is on; commands to these values are stored and take effect afterwards. A scene stores and recalls
/// everything but the overrides.
///
/// Not thread-safe.
class Unit {
public:
    explicit Unit(int number = 1, House house = exampleHouse());

    /// The unit number, 1 to 4.
    int number() const { return number_; }
    const House& house() const { return house_; }

    /// Executes one command, given by its body ("Z3V-35"). The value that the command addressed is always
    /// reported, changed or not, so that a client whose command had no effect learns the actual value.
    Response execute(std::string_view body);

    /// The answer to state query 0 to 4, end mark last.
    std::vector<std::string> answer(int query) const;

    const Memory& memory() const { return memory_; }

    /// Replaces the memory; volumes are clamped to the limits of this unit. Clients are not told.
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

    /// The setting in force: the commanded one, modified by the overrides that are on.
    Setting inForce() const;
    void apply(const OverrideFacts& facts, Setting& setting) const;
    std::vector<std::string> takeChanges();

    int number_;
    House house_;
    Memory memory_;
    Memory told_; // scenes unused
};

} // namespace lumbra::sim

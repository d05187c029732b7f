// Any bytes to the simulated unit, and what a screen makes of its reports. The first byte chooses the screen, the
// second the row of its item picker:
//
//     02[U1Z3V-35][U1SP1LOAD]

#include "Check.h"
#include "Input.h"
#include "Remote.h"
#include "simulator/CommandReader.h"
#include "simulator/Unit.h"

#include <array>
#include <cstdint>
#include <string>

using namespace lumbra;

namespace {

// The state query of each screen, in the order of the tabs.
constexpr std::array<int, 5> QUERIES{0, 1, 4, 3, 2};

std::string joined(const std::vector<std::string>& texts) {
    std::string all;
    for (const auto& text : texts)
        all += text;
    return all;
}

/// All that the screen shows.
std::string shown(Remote& remote) {
    std::string all;
    for (const auto& item : remote.application.tabs().selectedViewController()->view().items())
        all += item.name + ": " + remote.shown(item.name) + "\n";
    return all;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const sim::House house = sim::exampleHouse();
    Input input(data, size);
    const int screen = input.number(5);
    const int row = input.number(16);

    sim::Unit unit(1, house);
    const auto answer = [&] { return joined(unit.answer(QUERIES[static_cast<std::size_t>(screen)])); };
    Remote remote;
    remote.settings.setValue("advanced_mode_preference", screen == 1);
    remote.settings.setValue("start_tab_preference", std::int64_t{screen < 2 ? 0 : screen - 1});
    remote.launch();
    remote.streams.last().feed(answer());
    const auto pick = [&] {
        for (const auto* picker : {"zonePicker", "outputPicker", "groupPicker", "scenePicker"})
            if (const auto found = remote.application.tabs().selectedViewController()->view().find(picker))
                static_cast<Picker&>(*found).pickByUser(row);
    };
    pick();
    remote.streams.last().feed(answer());

    sim::CommandReader reader;
    for (const char byte : input.take(size)) {
        const auto command = reader.take(byte);
        if (!command || command->unit != unit.number())
            continue;
        const auto before = unit.memory();
        const auto response = unit.execute(command->body);
        check(response.to != sim::Response::To::NOT_A_COMMAND || unit.memory() == before,
              "what is no command changed the unit", command->body);
        check((response.to == sim::Response::To::ASKER || response.to == sim::Response::To::EVERYBODY) ==
                  !response.reports.empty(),
              "an empty report, or one to nobody", command->body);
        for (const auto& report : response.reports)
            check(report.size() > 2 && report.starts_with("(U1") && report.find_first_of("()", 1) == report.size() - 1,
                  "no whole report", report);
        remote.streams.last().feed(joined(response.reports));
    }

    // The changes that the unit reported left the screen with the truth: a whole answer tells it nothing new. (A row
    // that is picked shows every gain as such, as a report of a filter without gain does not.)
    pick();
    const auto heard = shown(remote);
    remote.streams.last().feed(answer());
    pick();
    check(shown(remote) == heard, "the screen did not show the unit's state", heard + "but\n" + shown(remote));
    return 0;
}

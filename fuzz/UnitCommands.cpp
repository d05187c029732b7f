// Any bytes to the simulated unit, and what the remote makes of its reports. The first byte chooses the
// screen, or with 5 to 9 none, which is faster; the second the row of its item picker:
//
//     02[U1Z3V-35][U1SP1LOAD]

#include "Check.h"
#include "Remote.h"
#include "Target.h"
#include "protocol/GroupMessages.h"
#include "protocol/OutputMessages.h"
#include "protocol/OverrideMessages.h"
#include "protocol/SceneMessages.h"
#include "protocol/ZoneMessages.h"
#include "simulator/CommandReader.h"
#include "simulator/Unit.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

using namespace lumbra;

namespace {

// The state query of each screen, in the order of the tabs.
constexpr std::array<int, 5> QUERIES{0, 1, 4, 3, 2};
constexpr int WITHOUT_SCREEN = 5;

template <class Report>
bool isRead(const std::optional<Parsed<Report>>& parsed) {
    return parsed && parsed->unit == 1;
}

void checkReport(std::string_view report) {
    check(report.size() > 2 && report.front() == '(' && report.find_first_of("()", 1) == report.size() - 1,
          "no whole report", report);
    const auto text = report.substr(1, report.size() - 2);
    check(isRead(zones::parse(text)) || isRead(outputs::parse(text)) || isRead(groups::parse(text)) ||
              isRead(overrides::parse(text)) || isRead(scenes::parse(text)),
          "a report that the remote does not understand", report);
}

/// A screen that listens to a unit.
class Listener {
public:
    Listener(const sim::Unit& unit, int screen, int row)
        : unit_(unit), query_(QUERIES.at(static_cast<std::size_t>(screen))) {
        remote_.settings.setValue("advanced_mode_preference", screen == 1);
        remote_.settings.setValue("start_tab_preference", std::int64_t{screen < 2 ? 0 : screen - 1});
        remote_.launch();
        pick(row);
        hear(unit_.answer(query_));
    }

    void hear(const std::vector<std::string>& reports) {
        std::string bytes;
        for (const auto& report : reports)
            bytes += report;
        remote_.streams.last().feed(bytes);
    }

    /// The changes that the unit reported must have left the screen with the truth: a whole answer tells it
    /// nothing new.
    void checkState() {
        const auto before = shown();
        hear(unit_.answer(query_));
        const auto after = shown();
        check(before == after, "the screen did not show the unit's state", before + "but\n" + after);
    }

private:
    /// The screen's own item picker, or null.
    Picker* itemPicker() {
        for (const auto& item : remote_.application.tabs().selectedViewController()->view().items())
            if (item.control->kind() == Control::Kind::Picker && item.name != "sourcePicker")
                return static_cast<Picker*>(item.control.get());
        return nullptr;
    }
    void pick(std::optional<int> row) {
        if (auto* picker = itemPicker())
            picker->pickByUser(row.value_or(picker->selected()));
    }
    std::string shown() {
        pick(std::nullopt); // A report of a band without gain shows none, a row that is picked does.
        std::string all;
        for (const auto& item : remote_.application.tabs().selectedViewController()->view().items())
            all += item.name + ": " + remote_.shown(item.name) + "\n";
        return all;
    }

    const sim::Unit& unit_;
    int query_;
    Remote remote_;
};

} // namespace

FUZZ_TARGET(unit)(Input input) {
    static const sim::House HOUSE = sim::exampleHouse();
    const int screen = input.number(10);
    const int row = input.number(16);
    sim::Unit unit(1, HOUSE);
    std::optional<Listener> listener;
    if (screen < WITHOUT_SCREEN)
        listener.emplace(unit, screen, row);

    sim::CommandReader reader;
    for (const char byte : input.take(input.size())) {
        const auto command = reader.take(byte);
        if (!command || command->unit != unit.number())
            continue;
        const auto before = unit.memory();
        const auto response = unit.execute(command->body);
        check(response.to != sim::Response::To::NOT_A_COMMAND || unit.memory() == before,
              "what is no command changed the unit", command->body);
        check((response.to == sim::Response::To::ASKER || response.to == sim::Response::To::EVERYBODY) ==
                  !response.reports.empty(),
              "reports to nobody, or somebody without a report", command->body);
        for (const auto& report : response.reports)
            checkReport(report);
        if (listener)
            listener->hear(response.reports);
    }
    if (listener)
        listener->checkState();
}

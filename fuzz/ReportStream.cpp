// Any bytes that a unit may send, in pieces of any size, to any of the five screens; then a hand moves every
// control. The first byte chooses the screen, the second the unit's number, the third the size of the pieces:
//
//     01@(U1Z3V-35)(U1Z3M1)

#include "Check.h"
#include "Commands.h"
#include "Invariants.h"
#include "Remote.h"
#include "Target.h"
#include "toolkit/Controls.h"

#include <chrono>
#include <cstddef>
#include <string>

using namespace lumbra;

namespace {

void moveByHand(Control& control, Remote& remote) {
    visit(control,
          Overloads{[&remote](Picker& picker) { // each item shows its values
                        for (int row = 0; row < static_cast<int>(picker.rows().size()); ++row) {
                            picker.pickByUser(row);
                            const auto broken = brokenInvariant(remote);
                            check(broken.empty(), broken);
                        }
                    },
                    [](Slider& slider) {
                        slider.slideByUser(slider.maximum() - slider.value() + slider.minimum());
                    },
                    [](Switch& flipped) { flipped.flipByUser(!flipped.isOn()); },
                    [](SegmentedControl& segmented) {
                        const auto last = static_cast<int>(segmented.segments().size()) - 1;
                        segmented.tapByUser(last - segmented.selected());
                    },
                    [](Button& button) { button.pressByUser(); }, [](Label&) {}, [](ActivityIndicator&) {}});
}

} // namespace

FUZZ_TARGET(reports)(Input input) {
    const int screen = input.number(5);
    const int unit = 1 + (input.number(4) + 3) % 4;
    const auto piece = std::size_t{input.byte()} + 1;

    Remote remote;
    remote.settings.setValue("ip_address_preference", std::string("192.168.1.50"));
    remote.settings.setValue("unit_number_preference", std::int64_t{unit});
    remote.settings.setValue("advanced_mode_preference", screen == 1);
    remote.settings.setValue("start_tab_preference", std::int64_t{screen < 2 ? 0 : screen - 1});
    remote.launch();

    while (!input.empty()) {
        remote.streams.last().feed(input.take(piece));
        remote.settle();
    }
    auto broken = brokenInvariant(remote);
    check(broken.empty(), broken);
    check(remote.sent().empty(), "a report made the remote send a command");
    check(remote.application.link().isConnected(), "a report ended the link");

    for (const auto& item : remote.application.tabs().selectedViewController()->view().items()) {
        moveByHand(*item.control, remote);
        remote.settle();
    }
    remote.queue.advance(std::chrono::seconds(1));
    checkCommands(remote.sent());
    broken = brokenInvariant(remote);
    check(broken.empty(), broken);
}

// Any bytes that a unit may send, in pieces of any size, to any of the five screens; then a hand moves every
// control. The first byte chooses the screen, the second the unit's number, the third the size of the pieces:
//
//     01@(U1Z3V-35)(U1Z3M1)

#include "Check.h"
#include "Commands.h"
#include "Input.h"
#include "Invariants.h"
#include "Remote.h"

#include <chrono>
#include <memory>
#include <vector>

using namespace lumbra;

namespace {

void moveByHand(Control& control) {
    switch (control.kind()) {
    case Control::Kind::Picker: {
        auto& picker = static_cast<Picker&>(control);
        picker.pickByUser(static_cast<int>(picker.rows().size()) - 1);
        break;
    }
    case Control::Kind::Slider: {
        auto& slider = static_cast<Slider&>(control);
        slider.slideByUser(slider.maximum() - slider.value() + slider.minimum());
        break;
    }
    case Control::Kind::Switch: {
        auto& flip = static_cast<Switch&>(control);
        flip.flipByUser(!flip.isOn());
        break;
    }
    case Control::Kind::Segmented: {
        auto& segmented = static_cast<SegmentedControl&>(control);
        segmented.tapByUser(static_cast<int>(segmented.segments().size()) - 1 - segmented.selected());
        break;
    }
    case Control::Kind::Button:
        static_cast<Button&>(control).pressByUser();
        break;
    case Control::Kind::Label:
    case Control::Kind::ActivityIndicator:
        break;
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
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
        const auto broken = brokenInvariant(remote);
        check(broken.empty(), broken);
    }
    check(remote.sent().empty(), "a report made the remote send a command");
    check(remote.application.link().isConnected(), "a report ended the link");

    for (const auto& item : remote.application.tabs().selectedViewController()->view().items()) {
        moveByHand(*item.control);
        remote.settle();
    }
    remote.queue.advance(std::chrono::seconds(1));
    checkCommands(remote.sent());
    const auto broken = brokenInvariant(remote);
    check(broken.empty(), broken);
    return 0;
}

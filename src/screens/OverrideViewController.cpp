#include "screens/OverrideViewController.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>

namespace lumbra {

OverrideViewController::OverrideViewController(const ScreenContext& context, std::shared_ptr<View> view)
    : ScreenViewController(context, std::move(view), QUERY_NUMBER) {
    for (std::size_t item = 0; item < ovrSwitch_.size(); ++item)
        ovrSwitch_[item] = this->view().outlet<Switch>("ovrSwitch" + std::to_string(item + 1));
}

void OverrideViewController::viewDidLoad() {
    ScreenViewController::viewDidLoad();
    for (const auto& ovrSwitch : ovrSwitch_)
        ovrSwitch->valueChanged.set(std::weak_ptr(shared(this)), &OverrideViewController::ovrSwitchChange);
}

void OverrideViewController::ovrSwitchChange(Switch& sender) {
    for (std::size_t item = 0; item < ovrSwitch_.size(); ++item)
        if (ovrSwitch_[item].is(sender)) {
            send(overrides::operate(static_cast<std::int64_t>(item)));
            return;
        }
}

void OverrideViewController::processCommand(std::string_view report) {
    dispatch(overrides::parse, report, [this](const auto& typed) { handle(typed); });
}

void OverrideViewController::handle(const overrides::State& report) {
    if (report.item < 0 || report.item >= static_cast<int>(ovrSwitch_.size()))
        return;
    const auto& ovrSwitch = ovrSwitch_[static_cast<std::size_t>(report.item)];
    ovrSwitch->setOn(report.on);
    ovrSwitch->setKnown(true);
}

} // namespace lumbra

#include "screens/GroupViewController.h"

#include "screens/Readings.h"

#include <utility>

namespace lumbra {

GroupViewController::GroupViewController(const ScreenContext& context, std::shared_ptr<View> view)
    : ItemViewController(context, std::move(view), QUERY_NUMBER, ItemKind::Group, std::make_unique<Groups>(),
                         "groupPicker", percentOfVolume),
      group_(static_cast<Groups&>(items())),
      powerSwitch_(this->view().outlet<Switch>("powerSwitch")) {}

void GroupViewController::viewDidLoad() {
    ItemViewController::viewDidLoad();
    powerSwitch_->valueChanged.set(std::weak_ptr(shared(this)), &GroupViewController::powerSwitchChange);
}

void GroupViewController::powerSwitchChange(Switch& sender) {
    send(setPower(itemKind(), group_.current, sender.isOn()));
}

void GroupViewController::processCommand(std::string_view report) {
    dispatch(groups::parse, report, [this](const auto& typed) { handle(typed); });
}

void GroupViewController::showItem() {
    ItemViewController::showItem();
    showPower();
}

void GroupViewController::showPower() {
    powerSwitch_->setOn(ofCurrent(group_.power));
    setKnown(toldOfCurrent().power, powerSwitch_);
}

void GroupViewController::handle(const reports::Power& report) {
    if (!isItem(report.item))
        return;
    ofItem(group_.power, report.item) = report.on;
    told(report.item).power = true;
    announceItem(report.item);
    if (isCurrent(report.item))
        showPower();
}

} // namespace lumbra

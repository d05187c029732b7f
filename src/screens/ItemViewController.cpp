#include "screens/ItemViewController.h"

#include <utility>

namespace lumbra {

ItemViewController::ItemViewController(const ScreenContext& context, std::shared_ptr<View> view,
                                       int queryNumber, ItemKind kind, std::unique_ptr<Items> items,
                                       std::string_view itemPicker, Reading (*volumeReading)(std::int64_t))
    : ScreenViewController(context, std::move(view), queryNumber),
      kind_(kind),
      volumeReading_(volumeReading),
      itemPicker_(this->view().outlet<Picker>(itemPicker)),
      sourcePicker_(this->view().outlet<Picker>("sourcePicker")),
      volumeSlider_(this->view().outlet<Slider>("volumeSlider")),
      volumeLabel_(this->view().outlet<Label>("volumeLabel")),
      muteSwitch_(this->view().outlet<Switch>("muteSwitch")),
      powerSwitch_(std::dynamic_pointer_cast<Switch>(this->view().find("powerSwitch"))),
      items_(std::move(items)),
      steps_(context.queue) {
    const auto reading = [volumeReading](float value) { return volumeReading(truncated(value)); };
    volumeSlider_->setReading(reading);
    for (std::size_t item = 0; item < items_->name.size(); ++item) {
        const auto volume = items_->volume[item];
        auto& row = rows_.emplace_back(Row{
            .told = {.volume = {volume}, .input = {items_->source[item]}},
            .volume = std::make_shared<Slider>(volumeSlider_->minimum(), volumeSlider_->maximum(),
                                               static_cast<float>(volume)),
            .mute = std::make_shared<Switch>(items_->mute[item]),
        });
        row.volume->setReading(reading);
        row.volume->setKnown(false);
        row.mute->setKnown(false);
        showLimit(static_cast<std::int64_t>(item));
    }
}

void ItemViewController::viewDidLoad() {
    ScreenViewController::viewDidLoad();
    itemPicker_->setRows(items_->name_hide_str);
    sourcePicker_->setRows(source_.name_hide_str);
    const std::weak_ptr self = shared(this);
    itemPicker_->picked.set(self, &ItemViewController::itemPick);
    sourcePicker_->picked.set(self, &ItemViewController::sourcePick);
    volumeSlider_->valueChanged.set(self, &ItemViewController::volumeSliderChange);
    muteSwitch_->valueChanged.set(self, &ItemViewController::muteSwitchChange);
    if (const auto powerSwitch = powerSwitch_.lock())
        powerSwitch->valueChanged.set(self, &ItemViewController::powerSwitchChange);
    for (std::size_t index = 0; index < rows_.size(); ++index) {
        const auto item = static_cast<std::int64_t>(index);
        rows_[index].volume->valueChanged.set(
            self, [item](auto& screen, Slider&) { screen.rowVolumeChange(item); });
        rows_[index].mute->valueChanged.set(self,
                                            [item](auto& screen, Switch&) { screen.rowMuteChange(item); });
    }
}

// What the user does.

void ItemViewController::itemPick(Picker& sender) {
    const auto left = std::exchange(items_->current, itemForRow(static_cast<std::size_t>(sender.selected())));
    showRow(left);
    showRow(items_->current);
    showItem();
}

void ItemViewController::sourcePick(Picker& sender) {
    const auto input = ofItem(source_.name_hide_ref, sender.selected());
    ofCurrent(items_->source) = input;
    ask(items_->current, &ItemTold::input, input, selectInput);
}

void ItemViewController::volumeSliderChange(Slider& sender) {
    ofCurrent(rows_).volume->setValue(sender.value());
    // The step applies to the item that is current then, not to the one that was moved. That is meant: a pick puts the
    // picked item's volume on the slider, so the step finds nothing to do.
    steps_.schedule(volumeSlider_, [this](float value) { settleVolume(items_->current, value); });
}

void ItemViewController::muteSwitchChange(Switch& sender) {
    ofCurrent(rows_).mute->setOn(sender.isOn());
    send(setMute(kind_, items_->current, sender.isOn()));
}

void ItemViewController::powerSwitchChange(Switch& sender) {
    send(setPower(kind_, items_->current, sender.isOn()));
}

void ItemViewController::rowVolumeChange(std::int64_t item) {
    auto& row = ofItem(rows_, item);
    row.isMoved = true;
    if (isCurrent(item))
        volumeSlider_->setValue(row.volume->value());
    steps_.schedule(row.volume, [this, item](float value) {
        if (std::exchange(ofItem(rows_, item).isMoved, false))
            settleVolume(item, value);
    });
}

void ItemViewController::rowMuteChange(std::int64_t item) {
    const bool on = rowMute(item).isOn();
    if (isCurrent(item))
        muteSwitch_->flipByUser(on);
    else
        send(setMute(kind_, item, on));
}

void ItemViewController::settleVolume(std::int64_t item, float value) {
    auto& volume = ofItem(items_->volume, item);
    if (settle(truncated(value), volume))
        ask(item, &ItemTold::volume, volume, setVolume);
}

void ItemViewController::ask(std::int64_t item, Told ItemTold::*number, std::int64_t value,
                             std::string (*command)(ItemKind, std::int64_t, std::int64_t)) {
    if (send(command(kind_, item, value)) <= 0)
        return;
    (told(item).*number).asked = value;
    announceItem(item);
}

// What the unit reports.

void ItemViewController::handle(const reports::Volume& report) {
    if (!isItem(report.item) || report.level < Items::min_volume ||
        report.level > items_->maxVolume(report.item))
        return;
    ofItem(items_->volume, report.item) = report.level;
    ofItem(items_->mute, report.item) = false;
    told(report.item).volume.report(report.level);
    told(report.item).mute = true;
    announceItem(report.item);
    showVolume(report.item);
    showMute(report.item);
}

void ItemViewController::handle(const reports::Input& report) {
    if (!isItem(report.item) || report.input < 0 || report.input >= Sources::size)
        return;
    ofItem(items_->source, report.item) = report.input;
    told(report.item).input.report(report.input);
    announceItem(report.item);
    if (isCurrent(report.item))
        showSource();
}

void ItemViewController::handle(const reports::Mute& report) {
    if (!isItem(report.item))
        return;
    ofItem(items_->mute, report.item) = report.on;
    told(report.item).mute = true;
    announceItem(report.item);
    showMute(report.item);
}

void ItemViewController::handle(const reports::Power& report) {
    if (!isItem(report.item))
        return;
    ofItem(items_->power, report.item) = report.on;
    told(report.item).power = true;
    announceItem(report.item);
    if (isCurrent(report.item))
        showPower();
}

void ItemViewController::handle(const reports::ItemName& report) {
    if (!isItem(report.item))
        return;
    ofItem(items_->name, report.item) = report.name.view();
    told(report.item).name = true;
    itemsChanged();
}

void ItemViewController::handle(const reports::InputName& report) {
    if (report.input < 0 || report.input >= Sources::size)
        return;
    ofItem(source_.name, report.input) = report.name.view();
    inputsChanged();
    announceRows();
}

void ItemViewController::handle(const reports::InputStereo& report) {
    if (report.input < 0 || report.input >= Sources::size)
        return;
    ofItem(source_.stereo, report.input) = report.on;
    inputsChanged();
}

// What the screen shows.

void ItemViewController::showItem() {
    showSource();
    showCurrentVolume();
    showLimit(items_->current);
    showCurrentMute();
    if (!items_->power.empty())
        showPower();
}

void ItemViewController::showRow(std::int64_t item) {
    const auto& row = ofItem(rows_, item);
    if (!row.isMoved)
        row.volume->setValue(static_cast<float>(ofItem(items_->volume, item)));
    row.mute->setOn(ofItem(items_->mute, item));
}

void ItemViewController::showVolume(std::int64_t item) {
    auto& row = ofItem(rows_, item);
    row.isMoved = false;
    row.volume->setValue(static_cast<float>(ofItem(items_->volume, item)));
    row.volume->setKnown(row.told.volume.known);
    if (isCurrent(item))
        showCurrentVolume();
}

void ItemViewController::showMute(std::int64_t item) {
    const auto& row = ofItem(rows_, item);
    row.mute->setOn(ofItem(items_->mute, item));
    row.mute->setKnown(row.told.mute);
    if (isCurrent(item))
        showCurrentMute();
}

void ItemViewController::showLimit(std::int64_t item) {
    const auto limit = static_cast<float>(items_->maxVolume(item));
    ofItem(rows_, item).volume->setLimit(limit);
    if (isCurrent(item))
        volumeSlider_->setLimit(limit);
}

void ItemViewController::showCurrentVolume() {
    volumeSlider_->setValue(ofCurrent(rows_).volume->value());
    volumeLabel_->setReading(volumeReading_(ofCurrent(items_->volume)));
    setKnown(toldOfCurrent().volume.known, volumeSlider_, volumeLabel_);
}

void ItemViewController::showCurrentMute() {
    muteSwitch_->setOn(ofCurrent(items_->mute));
    setKnown(toldOfCurrent().mute, muteSwitch_);
}

void ItemViewController::showPower() {
    powerSwitch_->setOn(ofCurrent(items_->power));
    setKnown(toldOfCurrent().power, powerSwitch_);
}

void ItemViewController::showSource() {
    sourcePicker_->selectRow(static_cast<int>(source_.hideRowForRef(ofCurrent(items_->source))));
    setKnown(toldOfCurrent().input.known, sourcePicker_);
}

void ItemViewController::inputsChanged() {
    source_.rebuildHideLists();
    sourcePicker_->setRows(source_.name_hide_str);
    showSource();
}

void ItemViewController::itemsChanged() {
    items_->rebuildHideLists();
    itemPicker_->setRows(items_->name_hide_str);
    // An item that is no longer listed stays current, and all commands go to it, until another is picked. That is
    // meant.
    itemPicker_->selectRow(static_cast<int>(items_->hideRowForRef(items_->current)));
    announceRows();
}

void ItemViewController::announceItem(std::int64_t item) const {
    for (std::size_t row = 0; row < rowCount(); ++row)
        if (itemForRow(row) == item)
            announceRow(row);
}

ItemRow ItemViewController::row(std::size_t row) const {
    const auto item = itemForRow(row);
    const auto& told = ofItem(rows_, item).told;
    ItemRow shown{.name = items_->name_hide_str[row],
                  .input = ofItem(source_.name, told.input.reported),
                  .volume = told.volume.reported,
                  .level = volumeReading_(told.volume.reported),
                  .mute = ofItem(items_->mute, item),
                  .power = {},
                  .known = told.known(),
                  .askedVolume = told.volume.asked,
                  .askedLevel = {},
                  .askedInput = {}};
    if (!items_->power.empty())
        shown.power = ofItem(items_->power, item);
    if (told.volume.asked)
        shown.askedLevel = volumeReading_(*told.volume.asked);
    if (told.input.asked)
        shown.askedInput = ofItem(source_.name, *told.input.asked);
    return shown;
}

} // namespace lumbra

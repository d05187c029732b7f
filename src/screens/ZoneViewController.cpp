#include "screens/ZoneViewController.h"

#include "model/Outputs.h"
#include "screens/Readings.h"

#include <utility>

namespace lumbra {

ZoneViewController::ZoneViewController(const ScreenContext& context, std::shared_ptr<View> view)
    : ItemViewController(context, std::move(view), QUERY_NUMBER, ItemKind::Zone, std::make_unique<Zones>(),
                         "zonePicker", percentOfVolume),
      zone_(static_cast<Zones&>(items())),
      loudnessSwitch_(this->view().outlet<Switch>("loudnessSwitch")),
      bassSlider_(this->view().outlet<Slider>("bassSlider")),
      trebleSlider_(this->view().outlet<Slider>("trebleSlider")),
      bassLabel_(this->view().outlet<Label>("bassLabel")),
      trebleLabel_(this->view().outlet<Label>("trebleLabel")) {}

void ZoneViewController::viewDidLoad() {
    ItemViewController::viewDidLoad();
    const std::weak_ptr self = shared(this);
    for (const auto& slider : {bassSlider_, trebleSlider_})
        slider->setReading([](float value) { return percentOfTone(truncated(value)); });
    bassSlider_->valueChanged.set(self, &ZoneViewController::bassSliderChange);
    trebleSlider_->valueChanged.set(self, &ZoneViewController::trebleSliderChange);
    loudnessSwitch_->valueChanged.set(self, &ZoneViewController::loudnessSwitchChange);
}

void ZoneViewController::bassSliderChange(Slider&) {
    steps().schedule(bassSlider_, [this](float value) {
        if (settle(truncated(value), ofCurrent(zone_.bass)))
            send(zones::setBass(zone_.current, ofCurrent(zone_.bass)));
    });
}

void ZoneViewController::trebleSliderChange(Slider&) {
    steps().schedule(trebleSlider_, [this](float value) {
        if (settle(truncated(value), ofCurrent(zone_.treble)))
            send(zones::setTreble(zone_.current, ofCurrent(zone_.treble)));
    });
}

void ZoneViewController::loudnessSwitchChange(Switch& sender) {
    send(zones::setLoudness(zone_.current, sender.isOn()));
}

void ZoneViewController::processCommand(std::string_view report) {
    dispatch(zones::parse, report, [this](const auto& typed) { handle(typed); });
}

void ZoneViewController::showItem() {
    ItemViewController::showItem();
    showLoudness();
    showBass();
    showTreble();
}

void ZoneViewController::showLoudness() {
    loudnessSwitch_->setOn(ofCurrent(zone_.loudness));
    setKnown(toldOfCurrent().loudness, loudnessSwitch_);
}

void ZoneViewController::showBass() {
    bassSlider_->setValue(static_cast<float>(ofCurrent(zone_.bass)));
    bassLabel_->setReading(percentOfTone(ofCurrent(zone_.bass)));
    setKnown(toldOfCurrent().bass, bassSlider_, bassLabel_);
}

void ZoneViewController::showTreble() {
    trebleSlider_->setValue(static_cast<float>(ofCurrent(zone_.treble)));
    trebleLabel_->setReading(percentOfTone(ofCurrent(zone_.treble)));
    setKnown(toldOfCurrent().treble, trebleSlider_, trebleLabel_);
}

void ZoneViewController::handle(const reports::MaxVolume& report) {
    if (!isItem(report.item) || report.level < Zones::min_volume || report.level > Zones::max_possible_volume)
        return;
    ofItem(zone_.max_volume, report.item) = report.level;
    showLimit(report.item);
}

void ZoneViewController::handle(const zones::Loudness& report) {
    if (!isItem(report.item))
        return;
    ofItem(zone_.loudness, report.item) = report.on;
    told(report.item).loudness = true;
    if (isCurrent(report.item))
        showLoudness();
}

void ZoneViewController::handle(const zones::Bass& report) {
    if (!isItem(report.item) || report.level < Zones::min_bass || report.level > Zones::max_bass)
        return;
    ofItem(zone_.bass, report.item) = report.level;
    told(report.item).bass = true;
    if (isCurrent(report.item))
        showBass();
}

void ZoneViewController::handle(const zones::Treble& report) {
    if (!isItem(report.item) || report.level < Zones::min_treble || report.level > Zones::max_treble)
        return;
    ofItem(zone_.treble, report.item) = report.level;
    told(report.item).treble = true;
    if (isCurrent(report.item))
        showTreble();
}

void ZoneViewController::handle(const zones::OutputAssignment& report) {
    if (!isItem(report.item) || report.output < 0 || report.output >= Outputs::size)
        return;
    ofItem(zone_.hasMembership, report.item) = true;
    itemsChanged();
}

} // namespace lumbra

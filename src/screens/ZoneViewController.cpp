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
      bass_{this->view().outlet<Slider>("bassSlider"), this->view().outlet<Label>("bassLabel"), zone_.bass,
            &ItemTold::bass, zones::setBass},
      treble_{this->view().outlet<Slider>("trebleSlider"), this->view().outlet<Label>("trebleLabel"),
              zone_.treble, &ItemTold::treble, zones::setTreble} {}

void ZoneViewController::viewDidLoad() {
    ItemViewController::viewDidLoad();
    const std::weak_ptr self = shared(this);
    for (const auto* tone : {&bass_, &treble_})
        tone->slider->setReading([](float value) { return percentOfTone(truncated(value)); });
    bass_.slider->valueChanged.set(self, &ZoneViewController::bassSliderChange);
    treble_.slider->valueChanged.set(self, &ZoneViewController::trebleSliderChange);
    loudnessSwitch_->valueChanged.set(self, &ZoneViewController::loudnessSwitchChange);
}

void ZoneViewController::bassSliderChange(Slider&) {
    toneSliderChange(bass_);
}

void ZoneViewController::trebleSliderChange(Slider&) {
    toneSliderChange(treble_);
}

void ZoneViewController::toneSliderChange(Tone& tone) {
    steps().schedule(tone.slider, [this, &tone](float value) {
        if (settle(truncated(value), ofCurrent(tone.level)))
            send(tone.command(zone_.current, ofCurrent(tone.level)));
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
    showTone(bass_);
    showTone(treble_);
}

void ZoneViewController::showLoudness() {
    loudnessSwitch_->setOn(ofCurrent(zone_.loudness));
    setKnown(toldOfCurrent().loudness, loudnessSwitch_);
}

void ZoneViewController::showTone(Tone& tone) {
    tone.slider->setValue(static_cast<float>(ofCurrent(tone.level)));
    tone.label->setReading(percentOfTone(ofCurrent(tone.level)));
    setKnown(toldOfCurrent().*tone.known, tone.slider, tone.label);
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
    toneReported(bass_, report.item, report.level);
}

void ZoneViewController::handle(const zones::Treble& report) {
    toneReported(treble_, report.item, report.level);
}

void ZoneViewController::toneReported(Tone& tone, int zone, int level) {
    const auto shown = static_cast<float>(level);
    if (!isItem(zone) || shown < tone.slider->minimum() || shown > tone.slider->maximum())
        return;
    ofItem(tone.level, zone) = level;
    told(zone).*tone.known = true;
    if (isCurrent(zone))
        showTone(tone);
}

void ZoneViewController::handle(const zones::OutputAssignment& report) {
    if (!isItem(report.item) || report.output < 0 || report.output >= Outputs::size)
        return;
    ofItem(zone_.hasMembership, report.item) = true;
    itemsChanged();
}

} // namespace lumbra

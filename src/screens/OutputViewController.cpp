#include "screens/OutputViewController.h"

#include "model/FrequencyScale.h"
#include "screens/Readings.h"

#include <algorithm>
#include <string>
#include <utility>

namespace lumbra {

namespace {

/// The controls NAME1 ... NAME7.
template <class Control>
auto outletsOf(const View& view, const std::string& name) {
    Outputs::PerBand<Outlet<Control>> outlets;
    for (std::size_t band = 0; band < outlets.size(); ++band)
        outlets[band] = view.outlet<Control>(name + std::to_string(band + 1));
    return outlets;
}

} // namespace

OutputViewController::OutputViewController(const ScreenContext& context, std::shared_ptr<View> view)
    : ItemViewController(context, std::move(view), QUERY_NUMBER, ItemKind::Output,
                         std::make_unique<Outputs>(), "outputPicker", decibels),
      output_(static_cast<Outputs&>(items())),
      filterType_(outletsOf<SegmentedControl>(this->view(), "filterType")),
      filterFreq_(outletsOf<Slider>(this->view(), "filterFreq")),
      filterGain_(outletsOf<Slider>(this->view(), "filterGain")),
      filterFreqLabel_(outletsOf<Label>(this->view(), "freqLabel")),
      filterGainLabel_(outletsOf<Label>(this->view(), "gainLabel")) {}

void OutputViewController::viewDidLoad() {
    ItemViewController::viewDidLoad();
    const std::weak_ptr self = shared(this);
    for (std::size_t band = 0; band < filterType_.size(); ++band) {
        filterFreq_[band]->setReading([](float value) { return hertz(sliderToFrequency(value)); });
        filterGain_[band]->setReading([](float value) { return decibels(truncated(value)); });
        filterType_[band]->valueChanged.set(self,
                                            [band](auto& screen, auto&) { screen.filterTypeChange(band); });
        filterFreq_[band]->valueChanged.set(self,
                                            [band](auto& screen, auto&) { screen.filterFreqChange(band); });
        filterGain_[band]->valueChanged.set(self,
                                            [band](auto& screen, auto&) { screen.filterGainChange(band); });
    }
}

void OutputViewController::filterTypeChange(std::size_t band) {
    const auto type = static_cast<FilterType>(filterType_[band]->selected());
    ofCurrent(output_.filter_type)[band] = type;
    remember(output_.current, band, type);
    showFormer(band);
    sendFilterCommand(band);
}

void OutputViewController::filterFreqChange(std::size_t band) {
    steps().schedule(filterFreq_[band], [this, band](float value) {
        if (settle(sliderToFrequency(value), ofCurrent(output_.filter_freq)[band]))
            sendFilterCommand(band);
    });
}

void OutputViewController::filterGainChange(std::size_t band) {
    steps().schedule(filterGain_[band], [this, band](float value) {
        if (settle(truncated(value), ofCurrent(output_.filter_gain)[band]))
            sendFilterCommand(band);
    });
}

void OutputViewController::sendFilterCommand(std::size_t band) {
    send(outputs::setBand(output_.current, static_cast<std::int64_t>(band),
                          ofCurrent(output_.filter_type)[band], ofCurrent(output_.filter_gain)[band],
                          ofCurrent(output_.filter_freq)[band]));
}

void OutputViewController::processCommand(std::string_view report) {
    dispatch(outputs::parse, report, [this](const auto& typed) { handle(typed); });
}

void OutputViewController::showItem() {
    ItemViewController::showItem();
    for (std::size_t band = 0; band < filterType_.size(); ++band) {
        const auto gain = ofCurrent(output_.filter_gain)[band];
        filterGain_[band]->setValue(static_cast<float>(gain));
        filterGainLabel_[band]->setReading(decibels(gain));
        showFrequency(band);
        showType(band);
        showKnown(band);
    }
}

void OutputViewController::showRow(std::int64_t item) {
    ItemViewController::showRow(item);
    enableRowMute(item);
}

void OutputViewController::enableRowMute(std::int64_t item) {
    rowMute(item).setEnabled(ofItem(output_.power, item) && (!isCurrent(item) || muteSwitch().isEnabled()));
}

void OutputViewController::showType(std::size_t band) {
    const auto type = ofCurrent(output_.filter_type)[band];
    showFormer(band);
    filterType_[band]->setSelected(static_cast<int>(type));
    const auto& has = FILTERS[static_cast<std::size_t>(type)];
    filterFreq_[band]->setEnabled(has.frequency);
    filterGain_[band]->setEnabled(has.gain);
}

void OutputViewController::remember(std::int64_t output, std::size_t band, FilterType type) {
    if (type != FILTER_BYPASS)
        told(output).bands[band].last = type;
}

void OutputViewController::showFormer(std::size_t band) {
    const auto last = toldOfCurrent().bands[band].last;
    const bool isBypassed = ofCurrent(output_.filter_type)[band] == FILTER_BYPASS && last != FILTER_BYPASS;
    filterType_[band]->setFormer(isBypassed ? std::optional(static_cast<int>(last)) : std::nullopt);
}

void OutputViewController::showKnown(std::size_t band) {
    const auto& known = toldOfCurrent().bands[band];
    setKnown(known.type, filterType_[band]);
    setKnown(known.frequency, filterFreq_[band], filterFreqLabel_[band]);
    setKnown(known.gain, filterGain_[band], filterGainLabel_[band]);
}

void OutputViewController::showFrequency(std::size_t band) {
    const auto frequency = ofCurrent(output_.filter_freq)[band];
    filterFreq_[band]->setValue(frequencyToSlider(frequency));
    filterFreqLabel_[band]->setReading(hertz(frequency), {frequency, Reading::Unit::Hertz});
}

void OutputViewController::handle(const reports::Power& report) {
    if (!isItem(report.item))
        return;
    auto& reported = told(report.item);
    if (report.on) {
        const auto turnedOn = [&](std::int64_t volume) {
            return std::min(std::max(volume, ofItem(output_.min_to_volume, report.item)),
                            ofItem(output_.max_to_volume, report.item));
        };
        ofItem(output_.mute, report.item) = false;
        reported.mute = true;
        auto& volume = ofItem(output_.volume, report.item);
        volume = turnedOn(volume);
        // A volume that no report has given stays unknown.
        if (reported.volume.known)
            reported.volume.reported = turnedOn(reported.volume.reported);
    }
    ItemViewController::handle(report);
    // Nothing else sets this: a mute that is locked stays so when another output is picked. That is meant.
    if (isCurrent(report.item))
        muteSwitch().setEnabled(report.on);
    enableRowMute(report.item);
    if (report.on) {
        showMute(report.item);
        showVolume(report.item);
    }
}

void OutputViewController::handle(const outputs::Band& report) {
    if (!isItem(report.item))
        return;
    if (report.frequency && (*report.frequency < 1 || *report.frequency > Outputs::FREQ_MAX))
        return;
    if (report.gain && (*report.gain < Outputs::GAIN_MIN || *report.gain > Outputs::GAIN_MAX))
        return;
    const auto band = static_cast<std::size_t>(report.band);
    auto& known = told(report.item).bands[band];
    ofItem(output_.filter_type, report.item)[band] = report.type;
    known.type = true;
    remember(report.item, band, report.type);
    if (report.frequency)
        ofItem(output_.filter_freq, report.item)[band] = *report.frequency;
    if (report.gain)
        ofItem(output_.filter_gain, report.item)[band] = *report.gain;
    known.frequency |= report.frequency.has_value();
    known.gain |= report.gain.has_value();
    if (!isCurrent(report.item))
        return;
    showType(band);
    if (report.frequency) {
        showFrequency(band);
        if (report.gain)
            filterGainLabel_[band]->setReading(decibels(*report.gain));
        else
            filterGainLabel_[band]->setText("Gain");
    }
    if (report.gain)
        filterGain_[band]->setValue(static_cast<float>(*report.gain));
    showKnown(band);
}

bool OutputViewController::isLimit(int item, int level) const {
    return isItem(item) && level >= Outputs::min_volume && level <= output_.maxVolume(item);
}

void OutputViewController::handle(const reports::MaxVolume& report) {
    if (!isLimit(report.item, report.level))
        return;
    ofItem(output_.max_volume, report.item) = report.level;
    showLimit(report.item);
}

void OutputViewController::handle(const outputs::MaxTurnOnVolume& report) {
    if (isLimit(report.item, report.level))
        ofItem(output_.max_to_volume, report.item) = report.level;
}

void OutputViewController::handle(const outputs::MinTurnOnVolume& report) {
    if (isLimit(report.item, report.level))
        ofItem(output_.min_to_volume, report.item) = report.level;
}

void OutputViewController::handle(const outputs::Stereo& report) {
    if (!isItem(report.item))
        return;
    ofItem(output_.stereo, report.item) = report.on;
    itemsChanged();
}

} // namespace lumbra

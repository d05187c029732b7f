#pragma once

#include "link/ScreenViewController.h"
#include "model/Groups.h"
#include "model/HideLists.h"
#include "model/Sources.h"
#include "protocol/Command.h"
#include "protocol/ItemReports.h"
#include "toolkit/ItemList.h"
#include "toolkit/Label.h"
#include "toolkit/Picker.h"
#include "toolkit/Slider.h"
#include "toolkit/Switch.h"

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

namespace lumbra {

/// The time between an event of a slider and the deferred step that reads its value.
inline constexpr std::chrono::milliseconds DEFERRED_STEP{750};

/// The common part of the Zone, Output and Group screens: a picker of items, a picker of inputs, and the
/// input, volume and mute of the current item. Each screen has its own copy of the inputs. Main thread only.
///
/// Model is Zones, Outputs or Groups: `size`, `current`, and by item `name`, `source`, `volume` and `mute`.
template <class Model>
class ItemViewController : public ScreenViewController,
                           public PickerDataSource,
                           public PickerDelegate,
                           public ItemList {
public:
    void viewDidLoad() override {
        ScreenViewController::viewDidLoad();
        itemPickerData_.assign(itemNames().begin(), itemNames().end());
        sourcePickerData_ = source_.name_hide_str;
        const auto self = shared(this);
        for (const auto& picker : {itemPicker_, sourcePicker_}) {
            picker->setDelegate(self);
            picker->setDataSource(self);
        }
        volumeSlider_->setReading(
            [reading = volumeReading_](float value) { return reading(truncated(value)); });
        volumeSlider_->valueChanged.set(std::weak_ptr(self), &ItemViewController::volumeSliderChange);
        muteSwitch_->valueChanged.set(std::weak_ptr(self), &ItemViewController::muteSwitchChange);
    }

    // Any picker other than the item picker is the input picker.
    int numberOfRows(const Picker& picker) const override { return static_cast<int>(dataOf(picker).size()); }
    std::string_view titleForRow(const Picker& picker, int row) const override {
        return dataOf(picker).at(static_cast<std::size_t>(row));
    }
    AttributedText attributedTitleForRow(const Picker& picker, int row) const override {
        return {titleForRow(picker, row), Color::White};
    }
    void didSelectRow(Picker& picker, int row) override {
        if (itemPicker_.is(picker)) {
            model_.current = itemForRow(row);
            showItem();
        } else {
            ofCurrent(model_.source) = source_.name_hide_ref.at(static_cast<std::size_t>(row));
            announceItem(model_.current);
            send(selectInput(kind_, model_.current, ofCurrent(model_.source)));
        }
    }

    void volumeSliderChange(Slider&) {
        defer(volumeSlider_, [this](float value) {
            settle(truncated(value), ofCurrent(model_.volume), [&] {
                announceItem(model_.current);
                send(setVolume(kind_, model_.current, ofCurrent(model_.volume)));
            });
        });
    }
    void muteSwitchChange(Switch& sender) { send(setMute(kind_, model_.current, sender.isOn())); }

    std::size_t rowCount() const override { return itemNames().size(); }
    const std::shared_ptr<Slider>& volumeOf(std::size_t row) const override {
        return volumes_[static_cast<std::size_t>(itemForRow(static_cast<int>(row)))];
    }
    const std::shared_ptr<Switch>& muteOf(std::size_t row) const override {
        return mutes_[static_cast<std::size_t>(itemForRow(static_cast<int>(row)))];
    }
    ItemRow row(std::size_t row) const override {
        const auto item = static_cast<std::size_t>(itemForRow(static_cast<int>(row)));
        ItemRow shown{.name = itemNames()[row],
                      .input = source_.name[static_cast<std::size_t>(model_.source[item])],
                      .volume = model_.volume[item],
                      .level = volumeReading_(model_.volume[item]),
                      .mute = model_.mute[item],
                      .power = {},
                      .known = {},
                      .askedVolume = {},
                      .askedLevel = {},
                      .askedInput = {}};
        if constexpr (requires { model_.power; })
            shown.power = model_.power[item];
        return shown;
    }

protected:
    /// `volumeReading` is the reading of the volume label at a volume in dB.
    ItemViewController(const ScreenContext& context, std::shared_ptr<View> view, int queryNumber,
                       ItemKind kind, std::string_view itemPicker, Reading (*volumeReading)(std::int64_t))
        : ScreenViewController(context, std::move(view), queryNumber),
          kind_(kind),
          volumeReading_(volumeReading),
          itemPicker_(this->view().template outlet<Picker>(itemPicker)),
          sourcePicker_(this->view().template outlet<Picker>("sourcePicker")),
          volumeSlider_(this->view().template outlet<Slider>("volumeSlider")),
          volumeLabel_(this->view().template outlet<Label>("volumeLabel")),
          muteSwitch_(this->view().template outlet<Switch>("muteSwitch")) {
        for (std::size_t item = 0; item < volumes_.size(); ++item) {
            volumes_[item] = std::make_shared<Slider>(volumeSlider_->minimum(), volumeSlider_->maximum(),
                                                      static_cast<float>(model_.volume[item]));
            mutes_[item] = std::make_shared<Switch>(model_.mute[item]);
        }
    }

    /// The highest volume that a report may set for the item, in dB.
    std::int64_t maxVolume(std::size_t item) const {
        if constexpr (requires { model_.max_volume[item]; })
            return model_.max_volume[item];
        else
            return Model::max_volume;
    }

    /// Shows the current item in all controls. Sends nothing.
    virtual void showItem() {
        showSource();
        showVolume();
        muteSwitch_->setOn(ofCurrent(model_.mute));
    }

    Model& model() { return model_; }
    const Model& model() const { return model_; }
    ItemKind itemKind() const { return kind_; }
    Switch& muteSwitch() { return *muteSwitch_.operator->(); }
    /// The current item's element of one of the model's fields.
    template <class Field>
    auto& ofCurrent(Field& field) const {
        return field[static_cast<std::size_t>(model_.current)];
    }
    void showVolume() {
        volumeSlider_->setValue(static_cast<float>(ofCurrent(model_.volume)));
        volumeLabel_->setReading(volumeReading_(ofCurrent(model_.volume)));
    }

    // The deferred slider step. Each value-changed event schedules one step 0.75 s later, which reads the
    // slider then and applies to the item that is current then. Earlier steps are not cancelled: once the
    // slider rests, later steps find nothing to do.
    template <class Step>
    void defer(const Outlet<Slider>& slider, Step step) {
        queue().postAfter(DEFERRED_STEP, whileAlive([slider, step] { step(slider->value()); }));
    }
    /// A slider's value as a whole number, truncated toward zero.
    static std::int64_t truncated(float value) { return static_cast<std::int64_t>(value); }
    /// If `value` differs from the model, stores it there and sends its command.
    template <class SendCommand>
    static void settle(std::int64_t value, std::int64_t& stored, SendCommand sendCommand) {
        if (value == stored)
            return;
        stored = value;
        sendCommand();
    }

    static bool isItem(int item) { return item >= 0 && item < Model::size; }
    bool isCurrent(int item) const { return item == model_.current; }
    static bool isInput(int input) { return input >= 0 && input < Sources::size; }

    void handle(const reports::Volume& report) {
        if (!isItem(report.item))
            return;
        const auto item = static_cast<std::size_t>(report.item);
        if (report.level < Model::min_volume || report.level > maxVolume(item))
            return;
        model_.volume[item] = report.level;
        model_.mute[item] = false;
        announceItem(report.item);
        if (!isCurrent(report.item))
            return;
        showVolume();
        muteSwitch_->setOn(false);
    }
    void handle(const reports::Input& report) {
        if (!isItem(report.item) || !isInput(report.input))
            return;
        model_.source[static_cast<std::size_t>(report.item)] = report.input;
        announceItem(report.item);
        if (isCurrent(report.item))
            showSource();
    }
    void handle(const reports::Mute& report) {
        if (!isItem(report.item))
            return;
        model_.mute[static_cast<std::size_t>(report.item)] = report.on;
        announceItem(report.item);
        if (isCurrent(report.item))
            muteSwitch_->setOn(report.on);
    }
    void handle(const reports::ItemName& report) {
        if (!isItem(report.item))
            return;
        model_.name[static_cast<std::size_t>(report.item)] = report.name.view();
        itemsChanged();
    }
    void handle(const reports::InputName& report) {
        if (!isInput(report.input))
            return;
        source_.name[static_cast<std::size_t>(report.input)] = report.name.view();
        inputsChanged();
        announceRows();
    }
    void handle(const reports::InputStereo& report) {
        if (!isInput(report.input))
            return;
        source_.stereo[static_cast<std::size_t>(report.input)] = report.on;
        inputsChanged();
    }
    void handle(const reports::EndOfState&) { spinner().stopAnimating(); }

    /// Call after an item's name, or a value that decides whether it is listed, has changed.
    void itemsChanged() {
        if constexpr (hasHideLists)
            model_.rebuildHideLists();
        itemPickerData_.assign(itemNames().begin(), itemNames().end());
        itemPicker_->reloadAllComponents();
        itemPicker_->selectRow(rowForItem(model_.current));
        announceRows();
    }
    /// Call after the input, the volume, mute or power of an item has changed.
    void announceItem(std::int64_t item) const {
        for (std::size_t row = 0; row < rowCount(); ++row)
            if (itemForRow(static_cast<int>(row)) == item)
                announceRow(row);
    }

private:
    static constexpr bool hasHideLists = std::is_base_of_v<HideLists, Model>;

    const auto& itemNames() const {
        if constexpr (hasHideLists)
            return model_.name_hide_str;
        else
            return model_.name;
    }
    std::int64_t itemForRow(int row) const {
        if constexpr (hasHideLists)
            return model_.name_hide_ref.at(static_cast<std::size_t>(row));
        else
            return row;
    }
    int rowForItem(std::int64_t item) const {
        if constexpr (hasHideLists)
            item = model_.hideRowForRef(item);
        return static_cast<int>(item);
    }

    const std::vector<std::string>& dataOf(const Picker& picker) const {
        return itemPicker_.is(picker) ? itemPickerData_ : sourcePickerData_;
    }
    void showSource() {
        sourcePicker_->selectRow(static_cast<int>(source_.hideRowForRef(ofCurrent(model_.source))));
    }
    void inputsChanged() {
        source_.rebuildHideLists();
        sourcePickerData_ = source_.name_hide_str;
        sourcePicker_->reloadAllComponents();
        showSource();
    }

    ItemKind kind_;
    Reading (*volumeReading_)(std::int64_t);
    Outlet<Picker> itemPicker_;
    Outlet<Picker> sourcePicker_;
    Outlet<Slider> volumeSlider_;
    Outlet<Label> volumeLabel_;
    Outlet<Switch> muteSwitch_;
    // The pickers show these copies, never the models.
    std::vector<std::string> itemPickerData_;
    std::vector<std::string> sourcePickerData_;
    Model model_;
    Sources source_;
    std::array<std::shared_ptr<Slider>, static_cast<std::size_t>(Model::size)> volumes_;
    std::array<std::shared_ptr<Switch>, static_cast<std::size_t>(Model::size)> mutes_;
};

} // namespace lumbra

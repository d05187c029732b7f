#pragma once

#include "link/ScreenViewController.h"
#include "model/Groups.h"
#include "model/HideLists.h"
#include "model/Sources.h"
#include "protocol/Command.h"
#include "protocol/ItemReports.h"
#include "screens/ItemTold.h"
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

namespace lumbra {

/// The time between an event of a slider and the deferred step that reads its value.
inline constexpr std::chrono::milliseconds DEFERRED_STEP{750};

/// The common part of the Zone, Output and Group screens: a picker of items, a picker of inputs, and the
/// input, volume and mute of the current item. Each screen has its own copy of the inputs. Main thread only.
///
/// Model is Zones, Outputs or Groups: `size`, `current`, and by item `name`, `source`, `volume` and `mute`.
template <class Model>
class ItemViewController : public ScreenViewController, public ItemList {
public:
    void viewDidLoad() override {
        ScreenViewController::viewDidLoad();
        itemPicker_->setRows(itemNames());
        sourcePicker_->setRows(source_.name_hide_str);
        const std::weak_ptr self = shared(this);
        itemPicker_->picked.set(self, &ItemViewController::itemPick);
        sourcePicker_->picked.set(self, &ItemViewController::sourcePick);
        const auto reading = [volume = volumeReading_](float value) { return volume(truncated(value)); };
        volumeSlider_->setReading(reading);
        volumeSlider_->valueChanged.set(self, &ItemViewController::volumeSliderChange);
        muteSwitch_->valueChanged.set(self, &ItemViewController::muteSwitchChange);
        for (std::int64_t item = 0; item < Model::size; ++item) {
            const auto& [told, volume, mute, isMoved] = ofItem(items_, item);
            volume->setReading(reading);
            volume->valueChanged.set(self, [item](auto& screen, Slider&) { screen.rowVolumeChange(item); });
            mute->valueChanged.set(self, [item](auto& screen, Switch&) { screen.rowMuteChange(item); });
        }
    }

    void itemPick(Picker& sender) {
        const auto left = std::exchange(model_.current, itemForRow(sender.selected()));
        showRow(left);
        showRow(model_.current);
        showItem();
    }
    void sourcePick(Picker& sender) {
        ofCurrent(model_.source) = ofItem(source_.name_hide_ref, sender.selected());
        ask(model_.current, &ItemTold::input, ofCurrent(model_.source), selectInput);
    }

    // A move of the slider goes to the item that is current when its step runs, not to the one that was moved.
    // That is meant: a pick puts the picked item's volume on the slider, so the step then finds nothing to do.
    void volumeSliderChange(Slider& sender) {
        ofCurrent(items_).volume->setValue(sender.value());
        defer(volumeSlider_, [this](float value) { settleVolume(model_.current, value); });
    }
    void muteSwitchChange(Switch& sender) {
        ofCurrent(items_).mute->setOn(sender.isOn());
        send(setMute(kind_, model_.current, sender.isOn()));
    }
    // A move of a row goes to that row's item, whichever is current when the step runs.
    void rowVolumeChange(std::int64_t item) {
        auto& moved = ofItem(items_, item);
        moved.isMoved = true;
        if (isCurrent(item))
            volumeSlider_->setValue(moved.volume->value());
        defer(moved.volume, [this, item](float value) {
            if (std::exchange(ofItem(items_, item).isMoved, false))
                settleVolume(item, value);
        });
    }
    void rowMuteChange(std::int64_t item) {
        const bool on = ofItem(items_, item).mute->isOn();
        if (isCurrent(item))
            muteSwitch_->flipByUser(on);
        else
            send(setMute(kind_, item, on));
    }

    std::size_t rowCount() const override { return itemNames().size(); }
    const std::shared_ptr<Slider>& volumeOf(std::size_t row) const override { return itemOf(row).volume; }
    const std::shared_ptr<Switch>& muteOf(std::size_t row) const override { return itemOf(row).mute; }
    ItemRow row(std::size_t row) const override {
        const auto item = itemForRow(static_cast<int>(row));
        const auto& told = ofItem(items_, item).told;
        ItemRow shown{.name = itemNames()[row],
                      .input = ofItem(source_.name, told.input.reported),
                      .volume = told.volume.reported,
                      .level = volumeReading_(told.volume.reported),
                      .mute = ofItem(model_.mute, item),
                      .power = {},
                      .known = told.known(),
                      .askedVolume = told.volume.asked,
                      .askedLevel = {},
                      .askedInput = {}};
        if constexpr (requires { model_.power; })
            shown.power = ofItem(model_.power, item);
        if (told.volume.asked)
            shown.askedLevel = volumeReading_(*told.volume.asked);
        if (told.input.asked)
            shown.askedInput = ofItem(source_.name, *told.input.asked);
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
        for (std::int64_t item = 0; item < Model::size; ++item) {
            auto& [told, volume, mute, isMoved] = ofItem(items_, item);
            told.volume.reported = ofItem(model_.volume, item);
            told.input.reported = ofItem(model_.source, item);
            volume = std::make_shared<Slider>(volumeSlider_->minimum(), volumeSlider_->maximum(),
                                              static_cast<float>(ofItem(model_.volume, item)));
            volume->setKnown(false);
            mute = std::make_shared<Switch>(ofItem(model_.mute, item));
            mute->setKnown(false);
            showLimit(item);
        }
    }

    /// The highest volume that a report may set for the item, in dB.
    std::int64_t maxVolume(std::int64_t item) const {
        if constexpr (requires { model_.max_volume[0]; })
            return ofItem(model_.max_volume, item);
        else
            return Model::max_volume;
    }

    /// Shows the current item in all controls. Sends nothing.
    virtual void showItem() {
        showSource();
        showVolume();
        volumeSlider_->setLimit(static_cast<float>(maxVolume(model_.current)));
        showMute();
    }
    /// Shows an item that is picked or left in its row's controls. A move that is not sent yet stays.
    virtual void showRow(std::int64_t item) {
        const auto& row = ofItem(items_, item);
        if (!row.isMoved)
            row.volume->setValue(static_cast<float>(ofItem(model_.volume, item)));
        row.mute->setOn(ofItem(model_.mute, item));
    }

    Model& model() { return model_; }
    const Model& model() const { return model_; }
    ItemKind itemKind() const { return kind_; }
    Switch& muteSwitch() { return *muteSwitch_.operator->(); }
    Switch& rowMute(std::int64_t item) { return *ofItem(items_, item).mute; }
    ItemTold& told(std::int64_t item) { return ofItem(items_, item).told; }
    /// An item's element of one of the model's fields.
    template <class Field>
    static auto& ofItem(Field& field, std::int64_t item) {
        return field[static_cast<std::size_t>(item)];
    }
    template <class Field>
    auto& ofCurrent(Field& field) const {
        return ofItem(field, model_.current);
    }

    // Call after a report has given the value: it is shown in the item's row and, if the item is current, on the
    // card.
    void volumeReported(std::int64_t item) {
        auto& row = ofItem(items_, item);
        row.isMoved = false;
        row.volume->setValue(static_cast<float>(ofItem(model_.volume, item)));
        row.volume->setKnown(row.told.volume.known);
        if (isCurrent(item))
            showVolume();
    }
    void muteReported(std::int64_t item) {
        auto& row = ofItem(items_, item);
        row.mute->setOn(ofItem(model_.mute, item));
        row.mute->setKnown(row.told.mute);
        if (isCurrent(item))
            showMute();
    }
    void showLimit(std::int64_t item) {
        const auto limit = static_cast<float>(maxVolume(item));
        ofItem(items_, item).volume->setLimit(limit);
        if (isCurrent(item))
            volumeSlider_->setLimit(limit);
    }
    template <class... Controls>
    static void setKnown(bool known, const Outlet<Controls>&... controls) {
        (controls->setKnown(known), ...);
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
    bool isCurrent(std::int64_t item) const { return item == model_.current; }
    static bool isInput(int input) { return input >= 0 && input < Sources::size; }

    void handle(const reports::Volume& report) {
        if (!isItem(report.item) || report.level < Model::min_volume || report.level > maxVolume(report.item))
            return;
        ofItem(model_.volume, report.item) = report.level;
        ofItem(model_.mute, report.item) = false;
        told(report.item).volume.report(report.level);
        told(report.item).mute = true;
        announceItem(report.item);
        volumeReported(report.item);
        muteReported(report.item);
    }
    void handle(const reports::Input& report) {
        if (!isItem(report.item) || !isInput(report.input))
            return;
        ofItem(model_.source, report.item) = report.input;
        told(report.item).input.report(report.input);
        announceItem(report.item);
        if (isCurrent(report.item))
            showSource();
    }
    void handle(const reports::Mute& report) {
        if (!isItem(report.item))
            return;
        ofItem(model_.mute, report.item) = report.on;
        told(report.item).mute = true;
        announceItem(report.item);
        muteReported(report.item);
    }
    void handle(const reports::ItemName& report) {
        if (!isItem(report.item))
            return;
        ofItem(model_.name, report.item) = report.name.view();
        told(report.item).name = true;
        itemsChanged();
    }
    void handle(const reports::InputName& report) {
        if (!isInput(report.input))
            return;
        ofItem(source_.name, report.input) = report.name.view();
        inputsChanged();
        announceRows();
    }
    void handle(const reports::InputStereo& report) {
        if (!isInput(report.input))
            return;
        ofItem(source_.stereo, report.input) = report.on;
        inputsChanged();
    }
    void handle(const reports::EndOfState&) { spinner().stopAnimating(); }

    /// Call after an item's name, or a value that decides whether it is listed, has changed. An item that is no
    /// longer listed stays current and the target of all commands until another is picked. That is meant.
    void itemsChanged() {
        if constexpr (hasHideLists)
            model_.rebuildHideLists();
        itemPicker_->setRows(itemNames());
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

    struct Item {
        ItemTold told{.volume = {0}, .input = {0}};
        std::shared_ptr<Slider> volume; ///< of the item's row
        std::shared_ptr<Switch> mute;
        bool isMoved = false; ///< the user has moved `volume`, and neither a step nor a report has come since
    };
    const Item& itemOf(std::size_t row) const { return ofItem(items_, itemForRow(static_cast<int>(row))); }

    /// Sends what `command` makes of `value`. That is asked for if bytes have left.
    void ask(std::int64_t item, Told ItemTold::*number, std::int64_t value,
             std::string (*command)(ItemKind, std::int64_t, std::int64_t)) {
        if (send(command(kind_, item, value)) <= 0)
            return;
        (told(item).*number).asked = value;
        announceItem(item);
    }
    void settleVolume(std::int64_t item, float value) {
        auto& volume = ofItem(model_.volume, item);
        settle(truncated(value), volume, [&] { ask(item, &ItemTold::volume, volume, setVolume); });
    }

    // The current item's controls.
    void showVolume() {
        volumeSlider_->setValue(ofCurrent(items_).volume->value());
        volumeLabel_->setReading(volumeReading_(ofCurrent(model_.volume)));
        setKnown(ofCurrent(items_).told.volume.known, volumeSlider_, volumeLabel_);
    }
    void showMute() {
        muteSwitch_->setOn(ofCurrent(model_.mute));
        setKnown(ofCurrent(items_).told.mute, muteSwitch_);
    }
    void showSource() {
        sourcePicker_->selectRow(static_cast<int>(source_.hideRowForRef(ofCurrent(model_.source))));
        setKnown(ofCurrent(items_).told.input.known, sourcePicker_);
    }
    void inputsChanged() {
        source_.rebuildHideLists();
        sourcePicker_->setRows(source_.name_hide_str);
        showSource();
    }

    ItemKind kind_;
    Reading (*volumeReading_)(std::int64_t);
    Outlet<Picker> itemPicker_;
    Outlet<Picker> sourcePicker_;
    Outlet<Slider> volumeSlider_;
    Outlet<Label> volumeLabel_;
    Outlet<Switch> muteSwitch_;
    Model model_;
    Sources source_;
    std::array<Item, static_cast<std::size_t>(Model::size)> items_;
};

} // namespace lumbra

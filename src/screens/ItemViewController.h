#pragma once

#include "link/ScreenViewController.h"
#include "model/Items.h"
#include "model/Sources.h"
#include "protocol/Command.h"
#include "protocol/ItemReports.h"
#include "screens/DeferredSteps.h"
#include "screens/ItemTold.h"
#include "toolkit/ItemList.h"
#include "toolkit/Label.h"
#include "toolkit/Picker.h"
#include "toolkit/Slider.h"
#include "toolkit/Switch.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace lumbra {

/// The common part of the Zone, Output and Group screens: a picker of items, a picker of inputs, the input, volume
/// and mute of the current item, and the list of all items. Each screen has its own copy of the inputs. Main
/// thread only.
class ItemViewController : public ScreenViewController, public ItemList {
public:
    void viewDidLoad() override;

    void itemPick(Picker& sender);
    void sourcePick(Picker& sender);
    void volumeSliderChange(Slider& sender);
    void muteSwitchChange(Switch& sender);
    void powerSwitchChange(Switch& sender);
    // The user moves a row of the list.
    void rowVolumeChange(std::int64_t item);
    void rowMuteChange(std::int64_t item);

    std::size_t rowCount() const override { return items_->name_hide_ref.size(); }
    const std::shared_ptr<Slider>& volumeOf(std::size_t row) const override { return rowOf(row).volume; }
    const std::shared_ptr<Switch>& muteOf(std::size_t row) const override { return rowOf(row).mute; }
    ItemRow row(std::size_t row) const override;

protected:
    /// `volumeReading` is the reading of the volume label at a volume in dB.
    ItemViewController(const ScreenContext& context, std::shared_ptr<View> view, int queryNumber,
                       ItemKind kind, std::unique_ptr<Items> items, std::string_view itemPicker,
                       Reading (*volumeReading)(std::int64_t));

    /// Shows the current item in all controls. Sends nothing.
    virtual void showItem();
    /// Shows an item that is picked or left in its row's controls. A move that is not sent yet stays.
    virtual void showRow(std::int64_t item);
    Items& items() { return *items_; }
    ItemKind itemKind() const { return kind_; }
    DeferredSteps& steps() { return steps_; }
    Switch& muteSwitch() { return *muteSwitch_.operator->(); }
    Switch& rowMute(std::int64_t item) { return *ofItem(rows_, item).mute; }
    ItemTold& told(std::int64_t item) { return ofItem(rows_, item).told; }
    ItemTold& toldOfCurrent() { return told(items_->current); }
    /// The current item's element of one of the model's fields.
    template <class Field>
    decltype(auto) ofCurrent(Field& field) const {
        return ofItem(field, items_->current);
    }

    bool isItem(int item) const { return item >= 0 && item < static_cast<int>(items_->name.size()); }
    bool isCurrent(std::int64_t item) const { return item == items_->current; }

    using ScreenViewController::handle;
    void handle(const reports::Volume& report);
    void handle(const reports::Input& report);
    void handle(const reports::Mute& report);
    void handle(const reports::Power& report);
    void handle(const reports::ItemName& report);
    void handle(const reports::InputName& report);
    void handle(const reports::InputStereo& report);

    // Call after a report has changed the value in the model: it is shown in the item's row and, if the item is
    // current, in the screen's controls.
    void showVolume(std::int64_t item);
    void showMute(std::int64_t item);
    void showLimit(std::int64_t item);
    /// Call after an item's name, or a value that decides whether it is listed, has changed.
    void itemsChanged();
    /// Call after a value in an item's row has changed.
    void announceItem(std::int64_t item) const;

    template <class... Controls>
    static void setKnown(bool known, const Outlet<Controls>&... controls) {
        (controls->setKnown(known), ...);
    }

private:
    /// What belongs to an item besides its model.
    struct Row {
        ItemTold told;
        std::shared_ptr<Slider> volume;
        std::shared_ptr<Switch> mute;
        bool isMoved = false; ///< the user has moved `volume`, and neither a step nor a report has come since
    };

    std::int64_t itemForRow(std::size_t row) const { return items_->name_hide_ref.at(row); }
    const Row& rowOf(std::size_t row) const { return ofItem(rows_, itemForRow(row)); }

    void showCurrentVolume();
    void showCurrentMute();
    void showPower();
    void showSource();
    void inputsChanged();

    void settleVolume(std::int64_t item, float value);
    /// Sends what `command` makes of `value`. That is asked for if bytes have left.
    void ask(std::int64_t item, Told ItemTold::*number, std::int64_t value,
             std::string (*command)(ItemKind, std::int64_t, std::int64_t));

    ItemKind kind_;
    Reading (*volumeReading_)(std::int64_t);
    Outlet<Picker> itemPicker_;
    Outlet<Picker> sourcePicker_;
    Outlet<Slider> volumeSlider_;
    Outlet<Label> volumeLabel_;
    Outlet<Switch> muteSwitch_;
    Outlet<Switch> powerSwitch_; ///< empty for items that can't be turned off
    std::unique_ptr<Items> items_;
    Sources source_;
    std::vector<Row> rows_; ///< by item
    DeferredSteps steps_;
};

} // namespace lumbra

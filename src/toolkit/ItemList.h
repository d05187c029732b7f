#pragma once

#include "toolkit/Label.h"
#include "toolkit/Signal.h"
#include "toolkit/Slider.h"
#include "toolkit/Switch.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace lumbra {

/// One row of a screen's item picker, with what the unit has last reported of the item. What it has never
/// reported is a first value, and not `known`. Texts are UTF-8.
struct ItemRow {
    struct Known {
        bool name = false;
        bool input = false;
        bool volume = false;
        bool mute = false;
        bool power = false;

        bool operator==(const Known&) const = default;
    };

    std::string name;
    std::string input;   ///< the name of the item's input
    std::int64_t volume; ///< dB
    Reading level;       ///< the volume as the screen's label shows it
    bool mute;
    std::optional<bool> power; ///< nothing for an item that can't be turned off
    Known known;
    // What was sent and has not been reported since; nothing where nothing was.
    std::optional<std::int64_t> askedVolume; ///< dB
    std::optional<Reading> askedLevel;       ///< the same as the label would show it
    std::optional<std::string> askedInput;

    bool operator==(const ItemRow&) const = default;
};

/// All items of a screen at once: the rows of its item picker. The user can move each row's volume and mute,
/// whichever item is selected. Main thread only.
class ItemList {
public:
    virtual std::size_t rowCount() const = 0;
    /// `row` is less than `rowCount()`, here and below.
    virtual ItemRow row(std::size_t row) const = 0;
    /// The volume of the row's item, in dB: a control of its own, the same one as long as the screen lives. The
    /// selected item's and the screen's volume slider follow each other.
    virtual const std::shared_ptr<Slider>& volumeOf(std::size_t row) const = 0;
    /// The same for the item's mute.
    virtual const std::shared_ptr<Switch>& muteOf(std::size_t row) const = 0;

    // The same while the row's item is called `name`, which is what the user saw there; else, and if there is no such
    // row, null.
    std::shared_ptr<Slider> volumeAt(std::size_t row, std::string_view name) const {
        return isAt(row, name) ? volumeOf(row) : nullptr;
    }
    std::shared_ptr<Switch> muteAt(std::size_t row, std::string_view name) const {
        return isAt(row, name) ? muteOf(row) : nullptr;
    }

    /// Calls `observer` with a row whose values may have changed, or with nothing if any row may have, or
    /// their number.
    Subscription onRowChange(std::function<void(std::optional<std::size_t> row)> observer) const {
        return changed_.subscribe(std::move(observer));
    }

protected:
    ~ItemList() = default;
    void announceRow(std::size_t row) const { changed_.emit(row); }
    void announceRows() const { changed_.emit(std::nullopt); }

private:
    bool isAt(std::size_t at, std::string_view name) const { return at < rowCount() && row(at).name == name; }

    mutable Signal<std::optional<std::size_t>> changed_;
};

} // namespace lumbra

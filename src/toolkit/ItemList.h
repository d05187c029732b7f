#pragma once

#include "toolkit/Label.h"
#include "toolkit/Signal.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <utility>

namespace lumbra {

/// One row of a screen's item picker, with what the screen knows of the item. Texts are UTF-8.
struct ItemRow {
    std::string name;
    std::string input;   ///< the name of the item's input
    std::int64_t volume; ///< dB
    Reading level;       ///< the volume as the screen's label shows it
    bool mute;
    std::optional<bool> power; ///< nothing for an item that can't be turned off

    bool operator==(const ItemRow&) const = default;
};

/// All items of a screen at once, read-only: the rows of its item picker. Main thread only.
class ItemList {
public:
    virtual std::size_t rowCount() const = 0;
    /// `row` is less than `rowCount()`.
    virtual ItemRow row(std::size_t row) const = 0;

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
    mutable Signal<std::optional<std::size_t>> changed_;
};

} // namespace lumbra

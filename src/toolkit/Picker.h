#pragma once

#include "toolkit/Control.h"

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace lumbra {

/// A wheel of rows (UTF-8), one of them selected.
class Picker final : public Control {
public:
    static constexpr Kind KIND = Kind::Picker;

    Picker() : Control(KIND) {}

    const std::vector<std::string>& rows() const { return rows_; }
    /// The colour of the rows' text.
    static constexpr std::string_view COLOR = "white";
    /// 0-based; -1 while there are no rows.
    int selected() const { return selected_; }
    /// The text of the selected row; empty while there are no rows.
    std::string selectedText() const {
        return has(selected_) ? rows_[static_cast<std::size_t>(selected_)] : std::string();
    }

    /// Copies the rows. The selected row stays selected if it still exists, else the last one is selected.
    void setRows(std::span<const std::string> rows);
    /// Selects `row` without an event. A row that does not exist is ignored.
    void selectRow(int row);

    /// The user turns the wheel to `row`, which may be selected already: one event. Returns false and does
    /// nothing if disabled or if there is no such row.
    bool pickByUser(int row);
    /// The same, and also false if the text of the row is no longer `text`, which is what the user saw there.
    bool pickByUser(int row, std::string_view text);

    TargetAction<Picker> picked;

private:
    bool has(int row) const { return row >= 0 && row < static_cast<int>(rows_.size()); }

    std::vector<std::string> rows_;
    int selected_ = -1;
};

} // namespace lumbra

#pragma once

#include "toolkit/Control.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace lumbra {

class Picker;

enum class Color : std::uint8_t { Black, White };

std::string_view nameOf(Color color);

/// A text (UTF-8) and the colour it is drawn in.
struct AttributedText {
    std::string_view text;
    Color color = Color::Black;
};

/// Provides a picker's rows.
class PickerDataSource {
public:
    virtual int numberOfRows(const Picker& picker) const = 0;
    /// The text stays valid until the data source's rows change.
    virtual std::string_view titleForRow(const Picker& picker, int row) const = 0;
    virtual AttributedText attributedTitleForRow(const Picker& picker, int row) const = 0;

protected:
    ~PickerDataSource() = default;
};

/// Is told which row the user picks.
class PickerDelegate {
public:
    virtual void didSelectRow(Picker& picker, int row) = 0;

protected:
    ~PickerDelegate() = default;
};

/// A wheel of rows, one of them selected. It keeps neither its data source nor its delegate alive.
class Picker final : public Control {
public:
    static constexpr Kind KIND = Kind::Picker;

    Picker() : Control(KIND) {}

    const std::vector<std::string>& rows() const { return rows_; }
    Color color() const { return color_; }
    /// 0-based; -1 while there are no rows.
    int selected() const { return selected_; }
    /// The text of the selected row; empty while there are no rows.
    std::string selectedText() const {
        return has(selected_) ? rows_[static_cast<std::size_t>(selected_)] : std::string();
    }

    /// Takes its rows from `dataSource` from now on, and reloads them.
    void setDataSource(std::weak_ptr<PickerDataSource> dataSource);
    void setDelegate(std::weak_ptr<PickerDelegate> delegate) { delegate_ = std::move(delegate); }

    /// Reads all rows from the data source again. The selected row stays selected if it still exists, else
    /// the last one is selected.
    void reloadAllComponents();
    /// Selects `row` without an event. A row that does not exist is ignored.
    void selectRow(int row);

    /// The user turns the wheel to `row`, which may be selected already: one event. Returns false and does
    /// nothing if disabled or if there is no such row.
    bool pickByUser(int row);
    /// The same, and also false if the text of the row is no longer `text`, which is what the user saw there.
    bool pickByUser(int row, std::string_view text);

private:
    bool has(int row) const { return row >= 0 && row < static_cast<int>(rows_.size()); }

    std::weak_ptr<PickerDataSource> dataSource_;
    std::weak_ptr<PickerDelegate> delegate_;
    std::vector<std::string> rows_;
    int selected_ = -1;
    Color color_ = Color::Black;
};

} // namespace lumbra

#include "toolkit/Picker.h"

#include <algorithm>
#include <utility>

namespace lumbra {

std::string_view nameOf(Color color) {
    return color == Color::White ? "white" : "black";
}

void Picker::setDataSource(std::weak_ptr<PickerDataSource> dataSource) {
    dataSource_ = std::move(dataSource);
    reloadAllComponents();
}

void Picker::reloadAllComponents() {
    const auto source = dataSource_.lock();
    if (!source)
        return;
    const auto count = static_cast<std::size_t>(std::max(0, source->numberOfRows(*this)));
    bool differs = count != rows_.size();
    rows_.resize(count);
    for (std::size_t row = 0; row < count; ++row) {
        const auto title = source->attributedTitleForRow(*this, static_cast<int>(row));
        // Most reloads change one row or none: the others are compared, not copied.
        if (rows_[row] != title.text) {
            rows_[row] = title.text;
            differs = true;
        }
        if (color_ != title.color) {
            color_ = title.color;
            differs = true;
        }
    }
    const int last = static_cast<int>(count) - 1;
    const int kept = count == 0 ? -1 : std::clamp(selected_, 0, last);
    differs = differs || kept != selected_;
    selected_ = kept;
    if (differs)
        notifyChanged();
}

void Picker::selectRow(int row) {
    if (has(row))
        change(selected_, row);
}

bool Picker::pickByUser(int row) {
    if (!isEnabled() || !has(row))
        return false;
    change(selected_, row);
    if (const auto delegate = delegate_.lock())
        delegate->didSelectRow(*this, row);
    return true;
}

bool Picker::pickByUser(int row, std::string_view text) {
    return has(row) && rows_[static_cast<std::size_t>(row)] == text && pickByUser(row);
}

} // namespace lumbra

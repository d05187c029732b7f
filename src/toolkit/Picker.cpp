#include "toolkit/Picker.h"

#include <algorithm>

namespace lumbra {

void Picker::setRows(std::span<const std::string> rows) {
    // The unit repeats all names in each answer to a state query: most calls change nothing.
    const bool differs = !std::equal(rows.begin(), rows.end(), rows_.begin(), rows_.end());
    const auto last = static_cast<int>(rows.size()) - 1;
    const int kept = rows.empty() ? -1 : std::clamp(selected_, 0, last);
    if (!differs && kept == selected_)
        return;
    rows_.assign(rows.begin(), rows.end());
    selected_ = kept;
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
    picked.send(*this);
    return true;
}

bool Picker::pickByUser(int row, std::string_view text) {
    return has(row) && rows_[static_cast<std::size_t>(row)] == text && pickByUser(row);
}

} // namespace lumbra

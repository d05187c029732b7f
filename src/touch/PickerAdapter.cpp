#include "touch/PickerAdapter.h"

#include <QStringList>

#include <algorithm>

namespace lumbra {

PickerAdapter::PickerAdapter(std::shared_ptr<Picker> control, const std::string& caption, RefreshQueue& queue,
                             QObject* parent)
    : ControlAdapter(control, caption, queue, parent), control_(std::move(control)) {
    updateRows();
}

QString PickerAdapter::selectedText() const {
    return shownName(control_->selectedText());
}

bool PickerAdapter::pick(int row, const QString& text) {
    const auto& rows = control_->rows();
    const auto at = static_cast<std::size_t>(row); // below 0 it is beyond the rows
    return isEnabled() && at < rows.size() && control_->pickByUser(row, givenName(text, rows[at]));
}

void PickerAdapter::refresh() {
    if (updateRows())
        Q_EMIT rowsChanged();
    ControlAdapter::refresh();
}

bool PickerAdapter::updateRows() {
    QStringList wanted;
    for (const auto& row : control_->rows())
        wanted << shownName(row);
    if (wanted == rows_.stringList())
        return false;
    const auto had = rows_.rowCount();
    const auto has = static_cast<int>(wanted.size());
    if (has < had)
        rows_.removeRows(has, had - has);
    for (int row = 0; row < std::min(had, has); ++row)
        if (const auto index = rows_.index(row); index.data().toString() != wanted[row])
            rows_.setData(index, wanted[row]);
    if (has > had) {
        rows_.insertRows(had, has - had);
        for (int row = had; row < has; ++row)
            rows_.setData(rows_.index(row), wanted[row]);
    }
    return true;
}

} // namespace lumbra

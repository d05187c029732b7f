#include "touch/ItemListAdapter.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace lumbra {

namespace {

enum Role { Name = Qt::UserRole, Input, Level, Mute, Power };

} // namespace

int ItemListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

QVariant ItemListModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const auto& row = rows_[static_cast<std::size_t>(index.row())];
    switch (role) {
    case Name:
        return QString::fromStdString(row.name);
    case Input:
        return QString::fromStdString(row.input);
    case Level:
        return QString::fromStdString(row.level.text());
    case Mute:
        return row.mute;
    case Power:
        return row.power.value_or(true);
    default:
        return {};
    }
}

QHash<int, QByteArray> ItemListModel::roleNames() const {
    return {{Name, "name"}, {Input, "input"}, {Level, "level"}, {Mute, "mute"}, {Power, "power"}};
}

void ItemListModel::update(const ItemList& list) {
    const auto has = list.rowCount();
    if (has < rows_.size()) {
        beginRemoveRows({}, static_cast<int>(has), static_cast<int>(rows_.size()) - 1);
        rows_.resize(has);
        endRemoveRows();
    }
    for (std::size_t row = 0; row < rows_.size(); ++row)
        if (auto item = list.row(row); item != rows_[row]) {
            rows_[row] = std::move(item);
            const auto changed = index(static_cast<int>(row));
            Q_EMIT dataChanged(changed, changed);
        }
    if (has > rows_.size()) {
        beginInsertRows({}, static_cast<int>(rows_.size()), static_cast<int>(has) - 1);
        while (rows_.size() < has)
            rows_.push_back(list.row(rows_.size()));
        endInsertRows();
    }
}

ItemListAdapter::ItemListAdapter(const ItemList& list, RefreshQueue& queue, QObject* parent)
    : Adapter(queue, parent), list_(list), subscription_(list.onRowChange([this](auto) { mark(); })) {
    rows_.update(list_);
}

void ItemListAdapter::refresh() {
    rows_.update(list_);
    Adapter::refresh();
}

} // namespace lumbra

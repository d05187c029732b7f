#pragma once

#include "toolkit/ItemList.h"
#include "touch/Adapter.h"

#include <QAbstractListModel>
#include <QtQml/qqmlregistration.h>

#include <vector>

namespace lumbra {

/// The items of a screen as a list model that changes row by row. The roles are `name`, `input`, `level` (all
/// plain text), `mute` and `power` (false only for an item that is turned off).
class ItemListModel final : public QAbstractListModel {
    Q_OBJECT

public:
    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    /// Updates the rows from `list`.
    void update(const ItemList& list);

private:
    std::vector<ItemRow> rows_;
};

/// Exposes the items of a screen to QML.
class ItemListAdapter final : public lumbra::Adapter {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("a screen gives it")
    Q_PROPERTY(QAbstractItemModel* rows READ rows CONSTANT)

public:
    /// `list` outlives the adapter.
    ItemListAdapter(const ItemList& list, RefreshQueue& queue, QObject* parent);

    QAbstractItemModel* rows() { return &rows_; }

protected:
    void refresh() override;

private:
    const ItemList& list_;
    ItemListModel rows_;
    Subscription subscription_;
};

} // namespace lumbra

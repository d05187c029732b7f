#pragma once

#include "app/Application.h"
#include "toolkit/ItemList.h"
#include "toolkit/Picker.h"
#include "touch/SliderAdapter.h"
#include "touch/SwitchAdapter.h"

#include <QAbstractListModel>
#include <QHash>
#include <QtQml/qqmlregistration.h>

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace lumbra {

/// The items of a screen as a list model that changes row by row. The roles are `name`, `input`, `level` (plain
/// text, "–" where no report has given it), `askedInput` and `askedLevel` (what was asked for and has not been reported
/// since, else empty), `condition` (as ItemListAdapter's) and `spoken` (all of it, for a screen reader).
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
    Q_PROPERTY(QString level READ level NOTIFY changed)
    Q_PROPERTY(QString spokenLevel READ spokenLevel NOTIFY changed)
    Q_PROPERTY(QString condition READ condition NOTIFY changed)

public:
    /// `list`, the items of the screen whose view is `view`, and `application` outlive the adapter.
    ItemListAdapter(const ItemList& list, const View& view, Application& application, RefreshQueue& queue,
                    QObject* parent);

    QAbstractItemModel* rows() { return &rows_; }
    /// The volume that the unit has last reported for the selected item, or "–".
    QString level() const;
    /// The same for a screen reader, with the condition.
    QString spokenLevel() const;
    /// What keeps the selected item from playing, in words ("Muted"); empty if nothing does.
    QString condition() const;

    /// The volume of a row's item while that has the name `name`, which is what the user saw there; else null. It is
    /// the same adapter for the same item.
    Q_INVOKABLE lumbra::SliderAdapter* volumeAt(int row, const QString& name);
    /// The same for the item's mute.
    Q_INVOKABLE lumbra::SwitchAdapter* muteAt(int row, const QString& name);

protected:
    void refresh() override;

private:
    std::optional<ItemRow> selected() const;
    std::optional<Reading> reported() const;
    /// The name of a row's item, if it is shown as `name`; else one that it doesn't have.
    std::string givenNameAt(std::size_t row, const QString& name) const;
    template <class AdapterType, class Make>
    AdapterType* adapterOf(const Control* control, Make make);

    const ItemList& list_;
    Application& application_;
    RefreshQueue& queue_;
    std::shared_ptr<Picker> picker_;
    ItemListModel rows_;
    QHash<const Control*, ControlAdapter*> adapters_;
    std::vector<Subscription> subscriptions_;
};

} // namespace lumbra

#pragma once

#include "toolkit/Picker.h"
#include "touch/ControlAdapter.h"

#include <QStringListModel>
#include <QtQml/qqmlregistration.h>

namespace lumbra {

/// Exposes a picker to QML. Its rows are a list model that changes row by row, so that a wheel keeps its place
/// while names arrive. Default names are in the user's language.
class PickerAdapter final : public lumbra::ControlAdapter {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("a screen gives it")
    Q_PROPERTY(QAbstractItemModel* rows READ rows CONSTANT)
    Q_PROPERTY(int count READ count NOTIFY changed)
    Q_PROPERTY(int selected READ selected NOTIFY changed)
    Q_PROPERTY(QString selectedText READ selectedText NOTIFY changed)
    Q_PROPERTY(QString shownText READ shownText NOTIFY changed)

public:
    PickerAdapter(std::shared_ptr<Picker> control, const std::string& caption, RefreshQueue& queue,
                  QObject* parent);

    /// The role "display" holds a row's plain text.
    QAbstractItemModel* rows() { return &rows_; }
    int count() const { return rows_.rowCount(); }
    /// -1 while there are no rows.
    int selected() const { return control_->selected(); }
    QString selectedText() const;
    /// The same if the unit has reported it, else "–".
    QString shownText() const { return isKnown() ? selectedText() : unknownText(); }

    /// The text of a row of the list model; empty if there is no such row.
    Q_INVOKABLE QString textAt(int row) const { return rows_.index(row).data().toString(); }
    /// The user turns the wheel to `row`, which may be selected already. Returns false and does nothing if
    /// disabled, if there is no such row, or if its text is no longer `text`, which is what the user saw there.
    Q_INVOKABLE bool pick(int row, const QString& text);

Q_SIGNALS:
    /// Rows were added, removed or renamed.
    void rowsChanged();

protected:
    void refresh() override;

private:
    bool updateRows();

    std::shared_ptr<Picker> control_;
    QStringListModel rows_;
};

} // namespace lumbra

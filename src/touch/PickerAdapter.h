#pragma once

#include "toolkit/Picker.h"
#include "touch/ControlAdapter.h"

#include <QStringListModel>
#include <QtQml/qqmlregistration.h>

namespace lumbra {

/// Shows a picker to QML. Its rows are a list model that changes row by row, so that a wheel keeps its place
/// while names arrive.
class PickerAdapter final : public lumbra::ControlAdapter {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("a screen gives it")
    Q_PROPERTY(QAbstractItemModel* rows READ rows CONSTANT)
    Q_PROPERTY(int count READ count NOTIFY changed)
    Q_PROPERTY(int selected READ selected NOTIFY changed)
    Q_PROPERTY(QString selectedText READ selectedText NOTIFY changed)
    Q_PROPERTY(bool white READ isWhite NOTIFY changed)

public:
    PickerAdapter(std::shared_ptr<Picker> control, const std::string& caption, RefreshQueue& queue,
                  QObject* parent);

    /// The role "display" holds a row's plain text.
    QAbstractItemModel* rows() { return &rows_; }
    int count() const { return rows_.rowCount(); }
    /// -1 while there are no rows.
    int selected() const { return control_->selected(); }
    QString selectedText() const;
    bool isWhite() const { return control_->color() == Color::White; }

    /// The text of a row of the list; empty where there is no such row.
    Q_INVOKABLE QString textAt(int row) const { return rows_.index(row).data().toString(); }
    /// A hand turns the wheel to `row`, also to the one that is selected. False where there is no such row,
    /// or where it no longer holds `text`, what the person saw there: another was meant.
    Q_INVOKABLE bool pick(int row, const QString& text);

Q_SIGNALS:
    /// Rows have come, gone or changed their texts.
    void rowsChanged();

protected:
    void refresh() override;

private:
    bool takeRows();

    std::shared_ptr<Picker> control_;
    QStringListModel rows_;
};

} // namespace lumbra

#pragma once

#include "app/Notice.h"
#include "touch/Adapter.h"

#include <QString>
#include <QtQml/qqmlregistration.h>

namespace lumbra {

/// Exposes the alert to QML, as the user is told of it. All texts are plain text in the user's language; they are empty
/// while no alert is shown.
class AlertAdapter final : public lumbra::Adapter {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("the application gives it")
    Q_PROPERTY(bool shown READ isShown NOTIFY changed)
    Q_PROPERTY(QString title READ title NOTIFY changed)
    Q_PROPERTY(QString message READ message NOTIFY changed)
    Q_PROPERTY(QString button READ button NOTIFY changed)

public:
    /// `notice` outlives the adapter.
    AlertAdapter(Notice& notice, RefreshQueue& queue, QObject* parent);

    bool isShown() const { return notice_.shown() != nullptr; }
    QString title() const { return text(&Alert::title); }
    QString message() const { return text(&Alert::message); }
    QString button() const { return text(&Alert::button); }
    /// The user presses the alert's button. Does nothing while no alert is shown.
    Q_INVOKABLE void dismiss();

private:
    QString text(Text Alert::*field) const;

    Notice& notice_;
    Subscription subscription_;
};

} // namespace lumbra

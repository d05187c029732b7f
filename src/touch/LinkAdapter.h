#pragma once

#include "app/Application.h"
#include "touch/Adapter.h"

#include <QString>
#include <QtQml/qqmlregistration.h>

namespace lumbra {

/// Exposes the link to QML.
class LinkAdapter final : public lumbra::Adapter {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("the application gives it")
    Q_PROPERTY(State state READ state NOTIFY changed)
    Q_PROPERTY(QString address READ address NOTIFY changed)

public:
    enum class State { NotConnected, Connecting, Connected };
    Q_ENUM(State)

    /// `application` outlives the adapter.
    LinkAdapter(Application& application, RefreshQueue& queue, QObject* parent);

    State state() const;
    /// The unit's address as the connection holds it.
    QString address() const;
    /// Runs the connect step of the current screen, and nothing else.
    Q_INVOKABLE void reconnect() { application_.reconnect(); }

private:
    Application& application_;
    Subscription subscription_;
};

} // namespace lumbra

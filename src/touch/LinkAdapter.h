#pragma once

#include "app/Application.h"
#include "touch/Adapter.h"

#include <QString>
#include <QtQml/qqmlregistration.h>

namespace lumbra {

/// Exposes the link and the status of the current screen to QML.
class LinkAdapter final : public lumbra::Adapter {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("the application gives it")
    Q_PROPERTY(State state READ state NOTIFY changed)
    Q_PROPERTY(QString address READ address NOTIFY changed)
    Q_PROPERTY(bool redirected READ isRedirected CONSTANT)
    Q_PROPERTY(int unit READ unit NOTIFY changed)

public:
    enum class State {
        NotConnected,
        Retrying, ///< not connected; the application will try again without the user
        Connecting,
        Waiting, ///< connected; the unit has not answered yet
        Silent,  ///< connected; the unit does not answer
        Current, ///< connected; the screen shows what the unit has reported
    };
    Q_ENUM(State)

    /// `endpoint` is what the application really connects to, if that is not the unit's address; else empty.
    /// `application` outlives the adapter.
    LinkAdapter(Application& application, QString endpoint, RefreshQueue& queue, QObject* parent);

    State state() const;
    /// What the application connects to: the unit's address as the connection holds it, or what replaces it.
    QString address() const;
    /// Whether something other than the unit's address is reached.
    bool isRedirected() const { return !endpoint_.isEmpty(); }
    /// The number of the unit.
    int unit() const { return static_cast<int>(application_.link().unit); }
    /// Runs the connect step of the current screen, and nothing else.
    Q_INVOKABLE void reconnect() { application_.reconnect(); }

private:
    Application& application_;
    QString endpoint_;
    Subscription linkChange_;
    Subscription statusChange_;
};

} // namespace lumbra

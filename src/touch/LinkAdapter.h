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
    Q_PROPERTY(QString text READ text NOTIFY changed)
    Q_PROPERTY(QString address READ address NOTIFY changed)
    Q_PROPERTY(bool redirected READ isRedirected CONSTANT)

public:
    /// As Condition.
    enum class State {
        NotConnected = static_cast<int>(Condition::NotConnected),
        Retrying = static_cast<int>(Condition::Retrying),
        Connecting = static_cast<int>(Condition::Connecting),
        Waiting = static_cast<int>(Condition::Waiting),
        Silent = static_cast<int>(Condition::Silent),
        Current = static_cast<int>(Condition::Current),
    };
    Q_ENUM(State)

    /// `endpoint` is what the application really connects to, if that is not the unit's address; else empty.
    /// `application` outlives the adapter.
    LinkAdapter(Application& application, QString endpoint, RefreshQueue& queue, QObject* parent);

    State state() const { return static_cast<State>(application_.condition()); }
    /// It in words, in the user's language.
    QString text() const;
    /// What the application connects to: the unit's address as the connection holds it, or what replaces it.
    QString address() const;
    /// Whether something other than the unit's address is reached.
    bool isRedirected() const { return !endpoint_.isEmpty(); }
    /// Runs the connect step of the current screen, and nothing else.
    Q_INVOKABLE void reconnect() { application_.reconnect(); }

private:
    Application& application_;
    QString endpoint_;
    Subscription linkChange_;
    Subscription statusChange_;
};

} // namespace lumbra

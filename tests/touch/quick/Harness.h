#pragma once

#include "Remote.h"
#include "app/WindowLife.h"
#include "touch/AppAdapter.h"

#include <QObject>
#include <QString>
#include <QStringList>

#include <memory>

namespace lumbra {

/// Gives a QML test the real application on virtual time and scripted streams, launched and connected.
class Harness : public QObject {
    Q_OBJECT
    Q_PROPERTY(lumbra::AppAdapter* app READ app NOTIFY appChanged)

public:
    AppAdapter* app() const { return app_.get(); }

    /// A fresh application. `settings` are lines of "set KEY VALUE".
    Q_INVOKABLE void start(const QString& settings = {}, bool connected = true);
    /// Ends it.
    Q_INVOKABLE void stop();
    /// Plays lines as Remote has them, and lets one frame of virtual time pass. What went wrong.
    Q_INVOKABLE QString play(const QString& script);
    /// What was sent since the last call.
    Q_INVOKABLE QStringList sent();
    /// The lines of the scenario that both front ends play.
    Q_INVOKABLE QStringList scenario() const;
    /// Plays the scenario on the console, over an application of its own: what it leaves behind at each "~
    /// wait".
    Q_INVOKABLE QStringList playOnConsole() const;
    /// What was sent since the last call and what every control on show shows.
    Q_INVOKABLE QString leftBehind() { return leftBehind(*remote_); }
    /// Lets virtual time pass.
    Q_INVOKABLE void pass(int milliseconds);
    /// What became of the window.
    Q_INVOKABLE void setWindowHidden(bool hidden);
    /// The life events since the last call.
    Q_INVOKABLE QStringList lifeEvents() { return std::exchange(lifeEvents_, {}); }
    /// What assistive technology finds in the window, depth first: role, name, and where it has them its
    /// value and state: "Slider; Kitchen volume, 50 percent; -40 of -80 to 0".
    Q_INVOKABLE QStringList accessible(QObject* window) const;
    /// Assistive technology acts on what is called `name`. False where that is not found or has no such
    /// action.
    Q_INVOKABLE bool actOn(QObject* window, const QString& name, const QString& action) const;
    /// How many value-changed events a slider sent since the last call: each has its deferred step wait.
    Q_INVOKABLE int sliderEvents();

Q_SIGNALS:
    void appChanged();

private:
    static QString leftBehind(Remote& remote);

    std::unique_ptr<Remote> remote_;
    std::unique_ptr<WindowLife> life_;
    std::unique_ptr<AppAdapter> app_;
    QStringList lifeEvents_;
};

} // namespace lumbra

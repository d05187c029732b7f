#include "Session.h"
#include "app/WindowLife.h"
#include "touch/AppAdapter.h"

#include <QAccessible>
#include <QGuiApplication>
#include <QMetaEnum>
#include <QMouseEvent>
#include <QQmlContext>
#include <QQmlEngine>
#include <QStyleHints>
#include <QTranslator>
#include <QWindow>
#include <QtQml/qqmlextensionplugin.h>
#include <QtQuickTest>

#include <fstream>

Q_IMPORT_QML_PLUGIN(Lumbra_TouchPlugin)

namespace lumbra {

/// Gives a QML test the real application on virtual time and scripted streams, launched and connected.
class Harness : public QObject {
    Q_OBJECT
    Q_PROPERTY(lumbra::AppAdapter* app READ app NOTIFY appChanged)

public:
    AppAdapter* app() const { return app_.get(); }

    /// A fresh application. `settings` are lines of "set KEY VALUE".
    Q_INVOKABLE void start(const QString& settings) {
        stop();
        remote_ = std::make_unique<Remote>();
        remote_->play(settings.toStdString());
        life_ = std::make_unique<WindowLife>(remote_->application);
        app_ = std::make_unique<AppAdapter>(remote_->application, *life_);
        remote_->launch();
        pass(20);
        Q_EMIT appChanged();
    }
    /// Ends it.
    Q_INVOKABLE void stop() {
        app_.reset();
        Q_EMIT appChanged();
        life_.reset();
        remote_.reset();
    }
    /// Plays lines as Remote has them, and lets one frame of virtual time pass. What went wrong.
    Q_INVOKABLE QString play(const QString& script) {
        const auto problems = remote_->play(script.toStdString());
        pass(20);
        return QString::fromStdString(problems);
    }
    /// What was sent since the last call.
    Q_INVOKABLE QString sent() { return sent(*remote_); }
    /// What is opened from now on speaks this language.
    Q_INVOKABLE void speak(const QString& language) {
        QCoreApplication::removeTranslator(&translator_);
        if (translator_.load(QStringLiteral(":/i18n/lumbra_%1.qm").arg(language)))
            QCoreApplication::installTranslator(&translator_);
    }
    /// Moves the mouse with its left button down and keys held.
    Q_INVOKABLE void moveMouse(QWindow* window, qreal x, qreal y, int modifiers) const {
        const QPointF place(x, y);
        QMouseEvent move(QEvent::MouseMove, place, window->mapToGlobal(place), Qt::NoButton, Qt::LeftButton,
                         Qt::KeyboardModifiers(modifiers));
        QCoreApplication::sendEvent(window, &move);
    }
    /// Lets virtual time pass.
    Q_INVOKABLE void pass(int milliseconds) {
        remote_->queue.advance(std::chrono::milliseconds(milliseconds));
        remote_->settle();
    }
    /// The lines of the scenario that both front ends play.
    Q_INVOKABLE QStringList scenario() const {
        std::ifstream file(LUMBRA_SCENARIO);
        QStringList lines;
        for (std::string line; std::getline(file, line);)
            if (!line.empty() && !line.starts_with('#'))
                lines << QString::fromStdString(line).split(QStringLiteral(" ; "));
        return lines;
    }
    /// Plays it on the console, over an application of its own: what it leaves behind at each "~ wait".
    Q_INVOKABLE QStringList playOnConsole() const {
        Session session;
        session.start();
        QStringList left;
        for (const auto& line : scenario()) {
            const auto text = line.toStdString();
            const auto problems = session.play((text.starts_with('~') ? text : "$ " + text) + "\n<...");
            if (!problems.empty() || text.starts_with("~ wait"))
                left << QString::fromStdString(problems) + leftBehind(session.remote);
        }
        return left;
    }
    /// What was sent since the last call, what every control on show shows, the status and the items.
    Q_INVOKABLE QString leftBehind() { return leftBehind(*remote_); }

    /// What assistive technology finds in the window, depth first: role, name, and where it has them its
    /// value and state: "Slider; Kitchen volume, 50 percent; -40 of -80 to 0".
    Q_INVOKABLE QStringList accessible(QObject* window) const {
        QStringList found;
        walk(QAccessible::queryAccessibleInterface(window), [&found](QAccessibleInterface& thing) {
            auto line =
                QString::fromLatin1(QMetaEnum::fromType<QAccessible::Role>().valueToKey(thing.role())) +
                QStringLiteral("; ") + thing.text(QAccessible::Name);
            if (auto* const value = thing.valueInterface())
                line += QStringLiteral("; %1 of %2 to %3")
                            .arg(value->currentValue().toString(), value->minimumValue().toString(),
                                 value->maximumValue().toString());
            const auto state = thing.state();
            const bool on = state.checked || state.selected;
            line += QLatin1String(on ? "; on" : state.checkable ? "; off" : "");
            found << line + QLatin1String(state.readOnly ? "; read only" : "");
        });
        return found;
    }
    /// Assistive technology acts on what is called `name`. False where that is not found or has no such
    /// action.
    Q_INVOKABLE bool actOn(QObject* window, const QString& name, const QString& action) const {
        QAccessibleActionInterface* actions = nullptr;
        walk(QAccessible::queryAccessibleInterface(window), [&](QAccessibleInterface& thing) {
            if (!actions && thing.text(QAccessible::Name) == name)
                actions = thing.actionInterface();
        });
        if (!actions || !actions->actionNames().contains(action))
            return false;
        actions->doAction(action);
        return true;
    }

public Q_SLOTS:
    void qmlEngineAvailable(QQmlEngine* engine) {
        // What a finger must do to be a long one.
        QGuiApplication::styleHints()->setMousePressAndHoldInterval(150);
        engine->addImportPath(QStringLiteral("qrc:/qt/qml"));
        engine->rootContext()->setContextProperty(QStringLiteral("harness"), this);
    }

Q_SIGNALS:
    void appChanged();

private:
    static QString sent(Remote& remote) {
        QStringList all;
        for (const auto& command : remote.sent())
            all << QString::fromStdString(command);
        return all.join(u' ');
    }
    static QString leftBehind(Remote& remote) {
        const auto& view = remote.application.tabs().selectedViewController()->view();
        auto all = sent(remote).toStdString() + "\n" + view.name();
        for (const auto& item : view.items())
            all += "\n" + item.name + " " + remote.shown(item.name);
        all += "\n" + std::string(nameOf(remote.application.status().status()));
        const auto* items = remote.application.items();
        for (std::size_t row = 0; items && row < items->rowCount(); ++row)
            all += "\n" + items->row(row).name + " " + items->row(row).input + " " +
                   items->row(row).level.text() + (items->row(row).mute ? " muted" : "");
        return QString::fromStdString(all);
    }
    template <class Visit>
    static void walk(QAccessibleInterface* thing, const Visit& visit) {
        if (!thing || !thing->isValid() || thing->state().invisible)
            return;
        visit(*thing);
        for (int child = 0; child < thing->childCount(); ++child)
            walk(thing->child(child), visit);
    }

    std::unique_ptr<Remote> remote_;
    std::unique_ptr<WindowLife> life_;
    std::unique_ptr<AppAdapter> app_;
    QTranslator translator_;
};

} // namespace lumbra

using Setup = lumbra::Harness;
QUICK_TEST_MAIN_WITH_SETUP(touch, Setup)

#include "main.moc"

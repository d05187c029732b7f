#include "Harness.h"

#include "Session.h"

#include <QAccessible>
#include <QMetaEnum>

#include <fstream>

namespace lumbra {

void Harness::start(const QString& settings, bool connected) {
    stop();
    remote_ = std::make_unique<Remote>();
    remote_->play(settings.toStdString());
    auto* const application = &remote_->application;
    const auto tell = [this, application](const char* name, void (Application::*method)()) {
        return [this, application, name, method] {
            lifeEvents_ << QString::fromLatin1(name);
            (application->*method)();
        };
    };
    life_ = std::make_unique<WindowLife>(
        WindowLife::Events{tell("resign active", &Application::resignActive),
                           tell("enter background", &Application::enterBackground),
                           tell("enter foreground", &Application::enterForeground),
                           tell("become active", &Application::becomeActive)});
    app_ = std::make_unique<AppAdapter>(*application, *life_);
    remote_->launch(connected);
    pass(20);
    Q_EMIT appChanged();
}

void Harness::stop() {
    app_.reset();
    Q_EMIT appChanged();
    life_.reset();
    remote_.reset();
    lifeEvents_.clear();
}

QString Harness::play(const QString& script) {
    const auto problems = remote_->play(script.toStdString());
    pass(20);
    return QString::fromStdString(problems);
}

QStringList Harness::sent() {
    QStringList all;
    for (const auto& text : remote_->sent())
        all << QString::fromStdString(text);
    return all;
}

QStringList Harness::scenario() const {
    std::ifstream file(LUMBRA_SCENARIO);
    QStringList lines;
    for (std::string line; std::getline(file, line);)
        if (!line.empty() && !line.starts_with('#'))
            lines << QString::fromStdString(line);
    return lines;
}

QStringList Harness::playOnConsole() const {
    Session session;
    session.console->start();
    session.settle();
    session.remote.streams.last().connect();
    session.settle();
    session.remote.sent();
    QStringList left;
    for (const auto& line : scenario()) {
        const auto text = line.toStdString();
        const auto problem = session.play((text.starts_with('~') ? text : "$ " + text) + "\n<...");
        if (!problem.empty() || session.exitStatus)
            left << QString::fromStdString(problem);
        if (text.starts_with("~ wait"))
            left << leftBehind(session.remote);
    }
    return left;
}

QString Harness::leftBehind(Remote& remote) {
    std::string all;
    for (const auto& command : remote.sent())
        all += command;
    const auto& view = remote.application.tabs().selectedViewController()->view();
    all += "\n" + view.name();
    for (const auto& item : view.items())
        all += "\n" + item.name + " " + remote.shown(item.name);
    return QString::fromStdString(all);
}

namespace {

void describe(QAccessibleInterface* thing, QStringList& found) {
    if (!thing || !thing->isValid() || thing->state().invisible)
        return;
    auto line = QStringLiteral("%1; %2").arg(
        QString::fromLatin1(QMetaEnum::fromType<QAccessible::Role>().valueToKey(thing->role())),
        thing->text(QAccessible::Name));
    if (auto* const value = thing->valueInterface())
        line += QStringLiteral("; %1 of %2 to %3")
                    .arg(value->currentValue().toString(), value->minimumValue().toString(),
                         value->maximumValue().toString());
    if (thing->state().checkable || thing->state().checked || thing->state().selected)
        line += thing->state().checked || thing->state().selected ? QStringLiteral("; on")
                                                                  : QStringLiteral("; off");
    if (thing->state().readOnly)
        line += QStringLiteral("; read only");
    found << line;
    for (int child = 0; child < thing->childCount(); ++child)
        describe(thing->child(child), found);
}

QAccessibleInterface* called(const QString& name, QAccessibleInterface* thing) {
    if (!thing || !thing->isValid() || thing->state().invisible)
        return nullptr;
    if (thing->text(QAccessible::Name) == name)
        return thing;
    for (int child = 0; child < thing->childCount(); ++child)
        if (auto* const found = called(name, thing->child(child)))
            return found;
    return nullptr;
}

} // namespace

bool Harness::actOn(QObject* window, const QString& name, const QString& action) const {
    auto* const thing = called(name, QAccessible::queryAccessibleInterface(window));
    auto* const actions = thing ? thing->actionInterface() : nullptr;
    if (!actions || !actions->actionNames().contains(action))
        return false;
    actions->doAction(action);
    return true;
}

QStringList Harness::accessible(QObject* window) const {
    QStringList found;
    describe(QAccessible::queryAccessibleInterface(window), found);
    return found;
}

void Harness::pass(int milliseconds) {
    remote_->queue.advance(std::chrono::milliseconds(milliseconds));
    remote_->settle();
}

void Harness::setWindowHidden(bool hidden) {
    life_->setVisibility(hidden ? WindowLife::Visibility::Hidden : WindowLife::Visibility::Active);
}

int Harness::sliderEvents() {
    // A frame may be waiting for its end; all else that is delayed are deferred steps.
    pass(20);
    return static_cast<int>(remote_->queue.delayed());
}

} // namespace lumbra

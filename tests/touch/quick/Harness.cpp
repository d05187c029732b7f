#include "Harness.h"

#include "Session.h"

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

void Harness::pass(int milliseconds) {
    remote_->queue.advance(std::chrono::milliseconds(milliseconds));
    remote_->settle();
}

void Harness::setWindowHidden(bool hidden) {
    life_->setWindow(hidden ? WindowLife::Sight::Hidden : WindowLife::Sight::Active);
}

int Harness::sliderEvents() {
    // A frame may be waiting for its end; all else that is delayed are deferred steps.
    pass(20);
    return static_cast<int>(remote_->queue.delayed());
}

} // namespace lumbra

#include "Harness.h"

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

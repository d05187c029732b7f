#pragma once

#include "app/Application.h"
#include "app/WindowLife.h"

#include <QObject>

#include <memory>

class QQmlApplicationEngine;
class QQuickWindow;
class QTranslator;

namespace lumbra {

class AppAdapter;

/// How the window comes up.
struct TouchOptions {
    bool fullscreen = false; ///< for wall panels
};

/// The touch front end: one window over the application's controls. Needs a QGuiApplication, which is to be
/// constructed under a DisplayGuard. Main thread only.
class TouchFrontEnd : public QObject {
    Q_OBJECT

public:
    /// `application` outlives the front end and has not been launched.
    TouchFrontEnd(Application& application, TouchOptions options);
    ~TouchFrontEnd() override;

    /// Launches the application and shows its window; from here on the window's life is the application's,
    /// which is also told when it terminates. False, with the reason on standard error, where the window
    /// can't be made.
    bool show();

    /// Null before `show`.
    QQuickWindow* window() const { return window_; }
    AppAdapter& adapter() { return *adapter_; }

    /// Has texts shown in the language of the system from now on, where there is a catalogue for it.
    static void installTranslation();

private:
    void followWindow();

    Application& application_;
    TouchOptions options_;
    WindowLife life_;
    std::unique_ptr<AppAdapter> adapter_;
    std::unique_ptr<QQmlApplicationEngine> engine_;
    QQuickWindow* window_ = nullptr;
};

} // namespace lumbra

#pragma once

#include "app/Application.h"
#include "app/WindowLife.h"
#include "touch/QmlWindow.h"

#include <QObject>
#include <QRect>
#include <QString>

#include <memory>

class QQuickWindow;

namespace lumbra {

class AppAdapter;

/// Options of the window.
struct TouchOptions {
    bool fullscreen = false; ///< for wall panels
    QString endpoint = {};   ///< what is connected to, if it is not the unit's address
    QRect geometry = {};     ///< of the window on the screen; empty: the default
};

/// The touch front end: one window over the application's controls. Needs a QGuiApplication, which should be
/// constructed under a DisplayGuard. Main thread only.
class TouchFrontEnd : public QObject {
    Q_OBJECT

public:
    /// `application` outlives the front end and has not been launched.
    TouchFrontEnd(Application& application, TouchOptions options);
    ~TouchFrontEnd() override;

    /// Launches the application and shows its window. From now on the application follows the visibility of
    /// the window, and is told when it terminates. Returns false, with the reason on standard error, if the
    /// window cannot be created.
    bool show();

    /// Null before `show`.
    QQuickWindow* window() const { return window_ ? window_->window() : nullptr; }
    AppAdapter& adapter() { return *adapter_; }

    /// Makes the program's typeface the application's.
    static void installTypeface();
    /// Installs the translation for the system's language, if there is a catalogue for it.
    static void installTranslation();

private:
    void followWindow();

    Application& application_;
    TouchOptions options_;
    WindowLife life_;
    std::unique_ptr<AppAdapter> adapter_;
    std::unique_ptr<QmlWindow> window_;
};

} // namespace lumbra

#pragma once

#include <QString>

#include <memory>

class QObject;
class QQmlApplicationEngine;
class QQuickWindow;

namespace lumbra {

/// A window that a QML file of this module describes. Main thread only.
class QmlWindow {
public:
    /// Loads `file`. Its required property `name` is set to `object`, which outlives this object.
    QmlWindow(const QString& file, const QString& name, QObject& object);
    ~QmlWindow();
    QmlWindow(const QmlWindow&) = delete;
    QmlWindow& operator=(const QmlWindow&) = delete;

    /// Null if the window could not be created; the reason is on standard error.
    QQuickWindow* window() const { return window_; }
    void show(bool fullscreen);

private:
    std::unique_ptr<QQmlApplicationEngine> engine_;
    QQuickWindow* window_ = nullptr;
};

} // namespace lumbra

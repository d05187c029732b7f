#include "touch/QmlWindow.h"

#include <QFont>
#include <QGuiApplication>
#include <QQmlApplicationEngine>
#include <QQuickWindow>
#include <QtQml/qqmlextensionplugin.h>

#include <cstdio>

Q_IMPORT_QML_PLUGIN(Lumbra_TouchPlugin)

namespace lumbra {

QmlWindow::QmlWindow(const QString& file, const QString& name, QObject& object)
    : engine_(std::make_unique<QQmlApplicationEngine>()) {
    engine_->addImportPath(QStringLiteral("qrc:/qt/qml"));
    // Else controls take the font of the platform's theme. A font in QML has lost what was set in it.
    engine_->setInitialProperties(
        {{name, QVariant::fromValue(&object)}, {QStringLiteral("font"), QGuiApplication::font()}});
    engine_->load(QUrl(QStringLiteral("qrc:/qt/qml/Lumbra/Touch/qml/") + file));
    if (!engine_->rootObjects().isEmpty())
        window_ = qobject_cast<QQuickWindow*>(engine_->rootObjects().constFirst());
    if (!window_)
        std::fputs("lumbra-remote: The window can't be made; --console runs without one.\n", stderr);
}

QmlWindow::~QmlWindow() = default;

void QmlWindow::show(bool fullscreen) {
    if (fullscreen)
        window_->showFullScreen();
    else
        window_->show();
}

} // namespace lumbra

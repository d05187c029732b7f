#include "touch/TouchFrontEnd.h"

#include "touch/AppAdapter.h"

#include <QGuiApplication>
#include <QLocale>
#include <QQmlApplicationEngine>
#include <QQuickStyle>
#include <QQuickWindow>
#include <QTranslator>
#include <QtQml/qqmlextensionplugin.h>

#include <cstdio>

Q_IMPORT_QML_PLUGIN(Lumbra_TouchPlugin)

namespace lumbra {

namespace {

#if defined(Q_OS_ANDROID) || defined(Q_OS_IOS)
constexpr bool IS_PHONE = true;
#else
constexpr bool IS_PHONE = false;
#endif

WindowLife::Visibility visibilityOf(const QWindow& window) {
    const auto state = QGuiApplication::applicationState();
    if (!window.isVisible() || window.windowStates().testFlag(Qt::WindowMinimized) ||
        state == Qt::ApplicationHidden || state == Qt::ApplicationSuspended)
        return WindowLife::Visibility::Hidden;
    return IS_PHONE && state == Qt::ApplicationInactive ? WindowLife::Visibility::Inactive
                                                        : WindowLife::Visibility::Active;
}

} // namespace

TouchFrontEnd::TouchFrontEnd(Application& application, TouchOptions options)
    : application_(application),
      options_(options),
      life_({[&application] { application.resignActive(); },
             [&application] { application.enterBackground(); },
             [&application] { application.enterForeground(); },
             [&application] { application.becomeActive(); }}),
      adapter_(std::make_unique<AppAdapter>(application, life_)) {}

TouchFrontEnd::~TouchFrontEnd() = default;

void TouchFrontEnd::installTranslation() {
    auto* const translator = new QTranslator(QCoreApplication::instance());
    if (translator->load(QLocale(), QStringLiteral("lumbra"), QStringLiteral("_"), QStringLiteral(":/i18n")))
        QCoreApplication::installTranslator(translator);
    else
        delete translator;
}

bool TouchFrontEnd::show() {
    application_.launch();
    QObject::connect(qGuiApp, &QCoreApplication::aboutToQuit, this, [this] { application_.terminate(); });
    engine_ = std::make_unique<QQmlApplicationEngine>();
    engine_->addImportPath(QStringLiteral("qrc:/qt/qml"));
    engine_->setInitialProperties({{QStringLiteral("app"), QVariant::fromValue(adapter_.get())}});
    engine_->load(QUrl(QStringLiteral("qrc:/qt/qml/Lumbra/Touch/qml/Main.qml")));
    if (!engine_->rootObjects().isEmpty())
        window_ = qobject_cast<QQuickWindow*>(engine_->rootObjects().constFirst());
    if (!window_) {
        std::fputs("lumbra-remote: The window can't be made; --console runs without one.\n", stderr);
        return false;
    }
    if (options_.fullscreen)
        window_->showFullScreen();
    else
        window_->show();
    QObject::connect(window_, &QWindow::visibilityChanged, this, &TouchFrontEnd::followWindow);
    QObject::connect(window_, &QWindow::windowStateChanged, this, &TouchFrontEnd::followWindow);
    QObject::connect(qGuiApp, &QGuiApplication::applicationStateChanged, this, &TouchFrontEnd::followWindow);
    return true;
}

void TouchFrontEnd::followWindow() {
    life_.setVisibility(visibilityOf(*window_));
}

} // namespace lumbra

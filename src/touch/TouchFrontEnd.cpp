#include "touch/TouchFrontEnd.h"

#include "touch/AppAdapter.h"

#include <QFont>
#include <QGuiApplication>
#include <QLocale>
#include <QQuickWindow>
#include <QTranslator>

#include <utility>

namespace lumbra {

namespace {

bool isInSight(const QWindow& window) {
    const auto state = QGuiApplication::applicationState();
    return window.isVisible() && !window.windowStates().testFlag(Qt::WindowMinimized) &&
           state != Qt::ApplicationHidden && state != Qt::ApplicationSuspended;
}

} // namespace

TouchFrontEnd::TouchFrontEnd(Application& application, TouchOptions options)
    : application_(application),
      options_(std::move(options)),
      life_(application),
      adapter_(std::make_unique<AppAdapter>(application, life_, options_.endpoint)) {}

TouchFrontEnd::~TouchFrontEnd() = default;

void TouchFrontEnd::installTypeface() {
    auto font = QGuiApplication::font();
    // The other one is for a system without the first, and for letters that it lacks.
    font.setFamilies({QStringLiteral("Inter"), font.family()});
    QGuiApplication::setFont(font);
}

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
    window_ = std::make_unique<QmlWindow>(QStringLiteral("Main.qml"), QStringLiteral("app"), *adapter_);
    if (!window())
        return false;
    if (options_.geometry.isValid())
        window()->setGeometry(options_.geometry);
    window_->show(options_.fullscreen);
    QObject::connect(window(), &QWindow::visibilityChanged, this, &TouchFrontEnd::followWindow);
    QObject::connect(window(), &QWindow::windowStateChanged, this, &TouchFrontEnd::followWindow);
    QObject::connect(qGuiApp, &QGuiApplication::applicationStateChanged, this, &TouchFrontEnd::followWindow);
    return true;
}

void TouchFrontEnd::followWindow() {
    life_.setVisible(isInSight(*window()));
}

} // namespace lumbra

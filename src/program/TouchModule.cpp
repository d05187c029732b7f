#include "program/ApplicationHost.h"
#include "program/FrontEndModule.h"
#include "system/QtDescriptorWatcher.h"
#include "system/SignalPipe.h"
#include "touch/DisplayGuard.h"
#include "touch/FirstRun.h"
#include "touch/TouchFrontEnd.h"

#include <QFontDatabase>
#include <QGuiApplication>
#include <QIcon>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <thread>

using namespace lumbra;

namespace {

/// What is connected to in place of the unit's address, for people; empty for the address itself.
QString endpointOf(const Options& options) {
    if (options.demo)
        return QCoreApplication::translate("System", "Simulated unit");
    if (options.connectTo)
        return QString::fromStdString(formatHostPort(*options.connectTo));
    return {};
}

QtMessageHandler formerHandler = nullptr;

/// The toolkit waits for ever for a thread that the system refuses.
void endWithoutThread(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    if (message.startsWith(QLatin1String("QThread::start: Thread creation error"))) {
        std::fputs(
            "lumbra-remote: The system gives this program too few threads, or too little memory for them.\n",
            stderr);
        std::_Exit(EXIT_FAILURE);
    }
    formerHandler(type, context, message);
}

int run(int& argc, char** argv, const Options& options) {
    // A signal ends the program as closing the window does: the link is closed and the settings are written.
    const SignalPipe signals({SIGTERM, SIGINT, SIGHUP}, SignalPipe::Takes::First);
    formerHandler = qInstallMessageHandler(endWithoutThread);
    std::optional<DisplayGuard> guard(std::in_place);
    const QGuiApplication qt(argc, argv);
    guard.reset();
    QGuiApplication::setDesktopFileName(QStringLiteral(LUMBRA_APPLICATION_ID));
    QGuiApplication::setWindowIcon(QIcon(QStringLiteral(":/" LUMBRA_APPLICATION_ID ".svg")));
    // Loads the font configuration in parallel with the rest of the start; the first text would wait for it.
    const std::jthread fonts([] { QFontDatabase::families(); });
    TouchFrontEnd::installTypeface();
    TouchFrontEnd::installTranslation();

    std::optional<ApplicationHost> host(std::in_place, options);
    std::optional<TouchFrontEnd> touch;
    const auto launch = [&](const Options& used, const std::optional<UnitPlace>& unit,
                            const QRect& geometry) {
        if (!host->build(unit)) {
            std::fprintf(stderr, "lumbra-remote: %s\n", qPrintable(host->error()));
            return false;
        }
        touch.emplace(
            host->application(),
            TouchOptions{.fullscreen = used.fullscreen, .endpoint = endpointOf(used), .geometry = geometry});
        return touch->show();
    };
    std::optional<FirstRun> first;
    const auto answered = [&](const std::optional<UnitPlace>& unit) {
        auto used = options;
        if (!unit) {
            chooseDemo(used);
            host.emplace(used);
        }
        if (!launch(used, unit, first->geometry()))
            QCoreApplication::exit(1);
        first.reset();
    };
    QtDescriptorWatcher watcher;
    const auto watch = watcher.watchReadable(signals.descriptor(), &QCoreApplication::quit);
    if (host->knowsTheUnit() || !host->error().isEmpty())
        return launch(options, {}, {}) ? QGuiApplication::exec() : 1;
    first.emplace(answered);
    return first->show(options.fullscreen) ? QGuiApplication::exec() : 1;
}

} // namespace

extern "C" Q_DECL_EXPORT int runFrontEnd(int& argc, char** argv, const Options& options) {
    return run(argc, argv, options);
}

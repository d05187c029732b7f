#include "program/TouchModule.h"

#include "program/ApplicationHost.h"
#include "system/QtDescriptorWatcher.h"
#include "system/SignalPipe.h"
#include "touch/DisplayGuard.h"
#include "touch/TouchFrontEnd.h"

#include <QFontDatabase>
#include <QGuiApplication>
#include <QIcon>

#include <csignal>
#include <cstdio>
#include <optional>
#include <thread>

using namespace lumbra;

namespace {

int run(int& argc, char** argv, const Options& options) {
    // A signal ends the program as closing the window does: the link is closed and the settings are written.
    const SignalPipe signals({SIGTERM, SIGINT, SIGHUP}, SignalPipe::Takes::First);
    std::optional<DisplayGuard> guard(std::in_place);
    const QGuiApplication qt(argc, argv);
    guard.reset();
    QGuiApplication::setDesktopFileName(QStringLiteral(LUMBRA_APPLICATION_ID));
    QGuiApplication::setWindowIcon(QIcon(QStringLiteral(":/" LUMBRA_APPLICATION_ID ".svg")));
    // Loads the font configuration in parallel with the rest of the start; the first text would wait for it.
    const std::jthread fonts([] { QFontDatabase::families(); });
    TouchFrontEnd::installTranslation();
    ApplicationHost host(options);
    if (!host.error().isEmpty()) {
        std::fprintf(stderr, "lumbra-remote: %s\n", qPrintable(host.error()));
        return 1;
    }
    TouchFrontEnd touch(host.application(), {.fullscreen = options.fullscreen});
    QtDescriptorWatcher watcher;
    const auto watch = watcher.watchReadable(signals.descriptor(), &QCoreApplication::quit);
    return touch.show() ? QGuiApplication::exec() : 1;
}

} // namespace

extern "C" Q_DECL_EXPORT int runTouch(int& argc, char** argv, const Options& options) {
    return run(argc, argv, options);
}

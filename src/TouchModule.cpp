#include "TouchModule.h"

#include "ApplicationHost.h"
#include "touch/DisplayGuard.h"
#include "touch/TouchFrontEnd.h"

#include <QGuiApplication>

#include <cstdio>
#include <optional>

using namespace lumbra;

namespace {

int run(int& argc, char** argv, const Options& options) {
    std::optional<DisplayGuard> guard(std::in_place);
    const QGuiApplication qt(argc, argv);
    guard.reset();
    TouchFrontEnd::installTranslation();
    ApplicationHost host(options);
    if (!host.error().isEmpty()) {
        std::fprintf(stderr, "lumbra-remote: %s\n", qPrintable(host.error()));
        return 1;
    }
    TouchFrontEnd touch(host.application(), {.fullscreen = options.fullscreen});
    return touch.show() ? QGuiApplication::exec() : 1;
}

} // namespace

extern "C" Q_DECL_EXPORT int runTouch(int& argc, char** argv, const Options& options) {
    return run(argc, argv, options);
}

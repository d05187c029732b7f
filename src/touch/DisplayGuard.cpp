#include "touch/DisplayGuard.h"

#include <QString>

#include <cstdio>
#include <cstdlib>

namespace lumbra {

namespace {

void endOnFatalMessage(QtMsgType type, const QMessageLogContext&, const QString&) {
    if (type != QtFatalMsg)
        return;
    std::fputs("lumbra-remote: There is no display to open a window on; --console runs without one.\n",
               stderr);
    std::_Exit(EXIT_FAILURE);
}

} // namespace

DisplayGuard::DisplayGuard() : previous_(qInstallMessageHandler(endOnFatalMessage)) {}

DisplayGuard::~DisplayGuard() {
    qInstallMessageHandler(previous_);
}

} // namespace lumbra

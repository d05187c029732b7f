#include "program/ApplicationHost.h"
#include "program/FrontEndModule.h"
#include "system/QtDescriptorWatcher.h"
#include "system/SignalPipe.h"
#include "web/WebFrontEnd.h"

#include <QCoreApplication>

#include <csignal>
#include <cstdio>
#include <poll.h>
#include <string_view>
#include <unistd.h>

using namespace lumbra;

namespace {

/// Prints lines. What a reader who is behind does not take at once is dropped: the browsers must not wait for it.
void print(std::string_view lines) {
    pollfd output{STDOUT_FILENO, POLLOUT, 0};
    if (::poll(&output, 1, 0) == 1 && ::write(STDOUT_FILENO, lines.data(), lines.size()) == -1)
        return; // there is nobody to tell
}

int fail(const QString& sentence) {
    std::fprintf(stderr, "lumbra-remote: %s\n", qPrintable(sentence.simplified()));
    return 1;
}

int serve(int& argc, char** argv, const Options& options) {
    const SignalPipe signals({SIGTERM, SIGINT, SIGHUP}, SignalPipe::Takes::First);
    const QCoreApplication qt(argc, argv);
    ApplicationHost host(options);
    if (!host.prepare())
        return fail(host.error());
    if (!host.knowsTheUnit())
        std::fputs("lumbra-remote: No unit's address is stored yet; docs/install.md tells how to set it.\n",
                   stderr);
    WebFrontEnd web(host.platform(),
                    {.address = options.web->address,
                     .port = options.web->port,
                     .isOpen = options.webOpen,
                     .names = options.webNames,
                     .keyFile = options.webKeyFile,
                     .json = options.json,
                     .place = host.place()},
                    print);
    if (const auto error = web.start(); !error.isEmpty())
        return fail(error);
    QtDescriptorWatcher watcher;
    const auto watch = watcher.watchReadable(signals.descriptor(), &QCoreApplication::quit);
    const int status = QCoreApplication::exec();
    host.stop(); // it may be opening a link for a visitor
    return status;
}

} // namespace

extern "C" Q_DECL_EXPORT int runFrontEnd(int& argc, char** argv, const Options& options) {
    return serve(argc, argv, options);
}

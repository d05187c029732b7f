#include "ApplicationHost.h"
#include "Options.h"
#include "TouchModule.h"
#include "console/ConsoleFrontEnd.h"
#include "qt/QtDescriptorWatcher.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLibrary>

#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

using namespace lumbra;

namespace {

constexpr int FAILURE = 1;
constexpr int USAGE_ERROR = 2;

void complain(const QString& sentence) {
    std::fprintf(stderr, "lumbra-remote: %s\n", qPrintable(sentence.simplified()));
}

/// A standard descriptor that the parent has closed must not become a socket of ours.
void openStandardDescriptors() {
    for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        if (::fcntl(descriptor, F_GETFD) == -1)
            ::open("/dev/null", O_RDWR); // takes the lowest one that is free
}

int runConsole(int& argc, char** argv, const Options& options) {
    const QCoreApplication qt(argc, argv);
    ApplicationHost host(options);
    if (!host.error().isEmpty()) {
        complain(host.error());
        return FAILURE;
    }
    QtDescriptorWatcher watcher;
    ConsoleFrontEnd console(host.application(), watcher, {.json = options.json}, &QCoreApplication::exit);
    console.start();
    return QCoreApplication::exec();
}

/// Beside the program where it was built, in the library folder where it is installed.
QString touchModule() {
    const QDir folder = QFileInfo(QFile::symLinkTarget(QStringLiteral("/proc/self/exe"))).dir();
    const QString name = QStringLiteral("lumbra-touch.so");
    return folder.exists(name) ? folder.filePath(name)
                               : folder.filePath(QStringLiteral("../" LUMBRA_MODULE_FOLDER "/") + name);
}

int runTouch(int& argc, char** argv, const Options& options) {
    QLibrary module(touchModule());
    const auto run = reinterpret_cast<RunTouch>(module.resolve("runTouch"));
    if (!run) {
        complain(QStringLiteral("The touch screens can't be loaded; --console runs without them. (%1)")
                     .arg(module.errorString()));
        return FAILURE;
    }
    return run(argc, argv, options);
}

} // namespace

int main(int argc, char** argv) {
    openStandardDescriptors();
    QCoreApplication::setApplicationName(QStringLiteral("lumbra-remote"));
    QCoreApplication::setApplicationVersion(QStringLiteral(LUMBRA_VERSION));

    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);
    const auto parsed = parseOptions(arguments);
    if (const auto* wrong = std::get_if<UsageError>(&parsed)) {
        complain(wrong->sentence + QStringLiteral(" (--help lists the options)"));
        return USAGE_ERROR;
    }
    if (const auto* request = std::get_if<InformationRequest>(&parsed)) {
        std::fputs(request->text.toLocal8Bit().constData(), stdout);
        return 0;
    }
    const auto& options = std::get<Options>(parsed);
    return options.console ? runConsole(argc, argv, options) : runTouch(argc, argv, options);
}

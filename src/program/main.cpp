#include "console/ConsoleFrontEnd.h"
#include "program/ApplicationHost.h"
#include "program/FrontEndModule.h"
#include "program/ModulePath.h"
#include "program/Options.h"
#include "system/QtDescriptorWatcher.h"
#include "system/SignalPipe.h"

#include <QCoreApplication>
#include <QFile>
#include <QLibrary>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <fcntl.h>
#include <latch>
#include <malloc.h>
#include <new>
#include <pthread.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <system_error>
#include <thread>
#include <unistd.h>
#include <vector>

using namespace lumbra;

namespace {

constexpr int FAILURE = 1;
constexpr int USAGE_ERROR = 2;

void complain(const QString& sentence) {
    std::fprintf(stderr, "lumbra-remote: %s\n", qPrintable(sentence.simplified()));
}

/// Ends the program on an exception. If the system refused a resource, prints a sentence and exits with
/// status 1. Any other exception is a programming error and aborts.
[[noreturn]] void endOnException() {
    try {
        if (const auto exception = std::current_exception())
            std::rethrow_exception(exception);
        std::abort();
    } catch (const std::bad_alloc&) {
        std::fputs("lumbra-remote: The system gives this program too little memory.\n", stderr);
    } catch (const std::system_error& error) {
        std::fprintf(stderr, "lumbra-remote: The system refused what the program needs (%s).\n",
                     error.what());
    } catch (...) {
        std::abort();
    }
    std::_Exit(FAILURE);
}

/// A standard descriptor that the parent has closed must not be reused for a socket.
void openStandardDescriptors() {
    for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        if (::fcntl(descriptor, F_GETFD) == -1)
            ::open("/dev/null", O_RDWR); // takes the lowest one that is free
}

// The minimum that a start needs. With less, the toolkit aborts, crashes or waits for ever.
constexpr std::size_t CONSOLE_DESCRIPTORS = 16;
constexpr std::size_t WEB_DESCRIPTORS = 128; // the browsers have 64
constexpr std::size_t WINDOW_DESCRIPTORS = 48;
constexpr std::size_t WINDOW_THREADS = 8;
constexpr std::size_t MEBIBYTE = std::size_t{1} << 20;
constexpr std::size_t WINDOW_ADDRESS_SPACE =
    256 * MEBIBYTE; // about three times what it takes after `economise`
constexpr std::size_t WINDOW_DATA = 128 * MEBIBYTE;
constexpr std::size_t WINDOW_STACK = MEBIBYTE;
constexpr rlim_t AMPLE_MEMORY = 8192 * MEBIBYTE; // a driver for drawing and 64 processors need less

bool canOpen(std::size_t count) {
    std::vector<int> opened;
    while (opened.size() < count) {
        const int descriptor = ::open("/dev/null", O_RDONLY | O_CLOEXEC);
        if (descriptor == -1)
            break;
        opened.push_back(descriptor);
    }
    for (const int descriptor : opened)
        ::close(descriptor);
    return opened.size() == count;
}

bool isLimited(__rlimit_resource resource, rlim_t below) {
    rlimit limit{};
    return ::getrlimit(resource, &limit) == 0 && limit.rlim_cur < below;
}

/// For a process whose memory is limited. Else each thread takes 8 MiB for its stack and, at moments that depend on
/// the others, up to 128 MiB for its own heap; a driver for drawing takes hundreds.
void economise() {
    ::mallopt(M_ARENA_MAX, 1);
    pthread_attr_t attributes;
    ::pthread_attr_init(&attributes);
    ::pthread_attr_setstacksize(&attributes, 2 * MEBIBYTE);
    ::pthread_setattr_default_np(&attributes);
    ::pthread_attr_destroy(&attributes);
    if (!qEnvironmentVariableIsSet("QT_QUICK_BACKEND"))
        qputenv("QT_QUICK_BACKEND", "software");
}

/// With PROT_NONE of the address space, with PROT_WRITE of the data, too.
bool canReserve(std::size_t bytes, int protection) {
    void* const space =
        ::mmap(nullptr, bytes, protection, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    if (space == MAP_FAILED) // NOLINT: the system's macro
        return false;
    ::munmap(space, bytes);
    return true;
}

bool canRun(std::size_t count) {
    std::latch all(1);
    std::vector<std::jthread> threads;
    try {
        while (threads.size() < count)
            threads.emplace_back([&all] { all.wait(); });
    } catch (const std::system_error&) {
    }
    all.count_down();
    return threads.size() == count;
}

int runConsole(int& argc, char** argv, const Options& options) {
    if (!canOpen(CONSOLE_DESCRIPTORS)) {
        complain(
            QStringLiteral("The system gives this program too few file descriptors; see \"ulimit -n\"."));
        return FAILURE;
    }
    const QCoreApplication qt(argc, argv);
    ApplicationHost host(options);
    if (!host.build()) {
        complain(host.error());
        return FAILURE;
    }
    QtDescriptorWatcher watcher;
    const SignalPipe endSignals({SIGTERM, SIGINT, SIGHUP}, SignalPipe::Takes::First);
    const SignalPipe windowSignals({SIGWINCH, SIGCONT}, SignalPipe::Takes::Every);
    ConsoleFrontEnd console(host.application(), watcher,
                            {.json = options.json,
                             .place = host.place(),
                             .endSignals = endSignals.descriptor(),
                             .windowSignals = windowSignals.descriptor()},
                            &QCoreApplication::exit);
    console.start();
    return QCoreApplication::exec();
}

/// Runs the front end in a module; `complaint` is for the case that it can't be loaded.
int runModule(const char* name, const QString& complaint, int& argc, char** argv, const Options& options) {
    QLibrary module(modulePath(QFile::symLinkTarget(QStringLiteral("/proc/self/exe")), name));
    const auto run = reinterpret_cast<RunFrontEnd>(module.resolve("runFrontEnd"));
    if (!run) {
        complain(complaint.arg(module.errorString()));
        return FAILURE;
    }
    return run(argc, argv, options);
}

int runTouchModule(int& argc, char** argv, const Options& options) {
    if (isLimited(RLIMIT_AS, AMPLE_MEMORY) || isLimited(RLIMIT_DATA, AMPLE_MEMORY))
        economise();
    if (isLimited(RLIMIT_STACK, WINDOW_STACK) || !canReserve(WINDOW_ADDRESS_SPACE, PROT_NONE) ||
        !canReserve(WINDOW_DATA, PROT_WRITE) || !canOpen(WINDOW_DESCRIPTORS) || !canRun(WINDOW_THREADS)) {
        complain(
            QStringLiteral("The system gives this program too little memory, or too few file descriptors or "
                           "threads, for a window; see \"ulimit -a\". --console needs less."));
        return FAILURE;
    }
    return runModule("lumbra-touch.so",
                     QStringLiteral("The touch screens can't be loaded; --console runs without them. (%1)"),
                     argc, argv, options);
}

int runWebModule(int& argc, char** argv, const Options& options) {
    if (!canOpen(WEB_DESCRIPTORS)) {
        complain(QStringLiteral("The system gives this program too few file descriptors for browsers; see "
                                "\"ulimit -n\"."));
        return FAILURE;
    }
    return runModule("lumbra-web.so",
                     QStringLiteral("The web front end can't be loaded; it has a package of its own, "
                                    "lumbra-remote-web. (%1)"),
                     argc, argv, options);
}

} // namespace

int main(int argc, char** argv) {
    // A vanished reader and a file size limit show as errors of a write, not as signals.
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
    std::set_terminate(endOnException);
    openStandardDescriptors();
    QCoreApplication::setApplicationName(QStringLiteral("lumbra-remote"));

    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);
    const auto parsed = parseOptions(arguments);
    if (const auto* wrong = std::get_if<UsageError>(&parsed)) {
        complain(wrong->sentence + QStringLiteral(" (--help lists the options)"));
        return USAGE_ERROR;
    }
    if (const auto* request = std::get_if<InformationRequest>(&parsed)) {
        const auto problem = print(*request);
        if (!problem.isEmpty())
            complain(problem);
        return problem.isEmpty() ? 0 : FAILURE;
    }
    const auto& options = std::get<Options>(parsed);
    try {
        const auto run = options.console ? runConsole : options.web ? runWebModule : runTouchModule;
        return run(argc, argv, options);
    } catch (...) { // unwinding has restored the terminal
        endOnException();
    }
}

#include "simulator/LineWriter.h"
#include "simulator/Options.h"
#include "simulator/ReplayServer.h"
#include "simulator/StateFile.h"
#include "simulator/Unit.h"
#include "simulator/UnitServer.h"
#include "system/Printable.h"
#include "system/SignalPipe.h"

#include <QCoreApplication>
#include <QFile>
#include <QSocketNotifier>
#include <QTimer>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <fcntl.h>
#include <unistd.h>

namespace {

using namespace lumbra::sim;

constexpr int USAGE_ERROR = 2;
constexpr int FAILURE = 1;
constexpr std::chrono::milliseconds SAVE_DELAY{200};
/// How long the program waits for the reader of standard output when it ends.
constexpr std::chrono::milliseconds READER_PATIENCE{100};

void complain(const QString& sentence) {
    std::fprintf(stderr, "lumbra-unit-sim: %s\n", qPrintable(lumbra::printable(sentence)));
}

/// Keeps a closed standard descriptor from being reused for a socket, which would then receive the output.
void fillStandardDescriptors() {
    for (int descriptor = STDIN_FILENO; descriptor <= STDERR_FILENO; ++descriptor)
        if (::fcntl(descriptor, F_GETFD) == -1)
            ::open("/dev/null", O_RDWR); // takes the lowest that is free
}

QString endpoint(const QHostAddress& address, quint16 port) {
    const bool v6 = address.protocol() == QAbstractSocket::IPv6Protocol;
    return (v6 ? QStringLiteral("[%1]:%2") : QStringLiteral("%1:%2")).arg(address.toString()).arg(port);
}

/// Serves until a signal comes. False, with a message, if it can't listen.
template <class Server>
bool serve(Server& server, const Options& options, LineWriter& output, const QString& who) {
    const lumbra::SignalPipe endSignals({SIGTERM, SIGINT, SIGHUP}, lumbra::SignalPipe::Takes::First);
    const QSocketNotifier notifier(endSignals.descriptor(), QSocketNotifier::Read);
    QObject::connect(&notifier, &QSocketNotifier::activated, &QCoreApplication::quit);
    if (!server.listen(options.address, static_cast<quint16>(options.port))) {
        complain(
            QStringLiteral("Can't listen on %1: %2.")
                .arg(endpoint(options.address, static_cast<quint16>(options.port)), server.errorString()));
        return false;
    }
    output.write(
        QStringLiteral("%1 listens on %2").arg(who, endpoint(server.address(), server.port())).toStdString());
    QCoreApplication::exec();
    return true;
}

int runReplay(const Options& options) {
    const auto trace = lumbra::readTrace(QFile::encodeName(options.replayFile).toStdString());
    if (const auto* problem = std::get_if<std::string>(&trace)) {
        complain(QString::fromLocal8Bit(problem->c_str()));
        return FAILURE;
    }
    LineWriter output(STDOUT_FILENO);
    ReplayServer server(std::get<lumbra::Trace>(trace),
                        options.fast ? Playback::Pace::Fast : Playback::Pace::Recorded, options.verbose,
                        [&](const std::string& line) { output.write(line); });
    if (server.linkCount() == 0) {
        complain(QStringLiteral("Nothing can be played: in %1 no link was opened.").arg(options.replayFile));
        return FAILURE;
    }
    const bool served = serve(server, options, output,
                              QStringLiteral("Replay of a trace (links: %1)").arg(server.linkCount()));
    output.flush(READER_PATIENCE);
    return served ? EXIT_SUCCESS : FAILURE;
}

int runUnit(const Options& options) {
    Unit unit(options.unit);
    const StateFile stateFile(options.stateFile);
    const bool keeps = !options.stateFile.isEmpty();
    QString message;
    if (keeps) {
        Memory memory = unit.memory();
        const bool loaded = stateFile.load(memory, message);
        if (!message.isEmpty())
            complain(message);
        if (!loaded)
            return FAILURE;
        unit.restore(memory);
    }

    LineWriter output(STDOUT_FILENO);
    UnitServer server(std::move(unit), options.faults);
    if (options.verbose)
        server.setTrace([&](const std::string& line) { output.write(line); });
    QTimer saveTimer;
    saveTimer.setSingleShot(true);
    const auto save = [&] {
        saveTimer.stop();
        const bool saved = stateFile.save(server.unit().memory(), message);
        if (!saved)
            complain(message);
        return saved;
    };
    QObject::connect(&saveTimer, &QTimer::timeout, save);
    if (keeps)
        QObject::connect(&server, &UnitServer::changed, &saveTimer, [&] {
            if (!saveTimer.isActive())
                saveTimer.start(SAVE_DELAY);
        });

    if (!serve(server, options, output, QStringLiteral("Simulated unit %1").arg(options.unit)))
        return FAILURE;
    const bool saved = !keeps || save();
    const UnitServer::Statistics& statistics = server.statistics();
    if (options.verbose)
        output.write(QStringLiteral("Commands: %1 carried out, %2 refused, %3 for other units")
                         .arg(statistics.carried_out)
                         .arg(statistics.refused)
                         .arg(statistics.elsewhere)
                         .toStdString());
    output.flush(READER_PATIENCE);
    return saved ? EXIT_SUCCESS : FAILURE;
}

} // namespace

int main(int argc, char** argv) {
    fillStandardDescriptors();
    std::signal(SIGPIPE, SIG_IGN); // NOLINT: the system's macro
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);
    Options options;
    const auto parsed = commandLine(options).parse(arguments);
    if (const auto* wrong = std::get_if<lumbra::UsageError>(&parsed)) {
        complain(wrong->sentence.simplified() + QStringLiteral(" (--help lists the options)"));
        return USAGE_ERROR;
    }
    if (const auto* request = std::get_if<lumbra::InformationRequest>(&parsed)) {
        const auto problem = print(*request);
        if (!problem.isEmpty())
            complain(problem);
        return problem.isEmpty() ? EXIT_SUCCESS : FAILURE;
    }
    const QCoreApplication application(argc, argv);
    try {
        return !options.replayFile.isEmpty() ? runReplay(options) : runUnit(options);
    } catch (const std::exception& failure) {
        complain(
            QStringLiteral("The simulated unit can't run: %1.").arg(QString::fromLocal8Bit(failure.what())));
        return FAILURE;
    }
}

#include "simulator/Faults.h"
#include "simulator/LineWriter.h"
#include "simulator/StateFile.h"
#include "simulator/Unit.h"
#include "simulator/UnitServer.h"
#include "system/SignalPipe.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QSocketNotifier>
#include <QTimer>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <fcntl.h>
#include <functional>
#include <limits>
#include <optional>
#include <unistd.h>

namespace {

using namespace lumbra::sim;

constexpr int USAGE_ERROR = 2;
constexpr int FAILURE = 1;
constexpr int MOST = std::numeric_limits<int>::max();
constexpr std::chrono::milliseconds SAVE_DELAY{200};
/// How long the program waits for the reader of standard output when it ends.
constexpr std::chrono::milliseconds READER_PATIENCE{100};

struct Settings {
    int port = 0;
    int unit = 1;
    QHostAddress address{QHostAddress::LocalHost};
    QString stateFile;
    bool verbose = false;
    Faults faults;
};

void complain(const QString& sentence) {
    std::fprintf(stderr, "lumbra-unit-sim: %s\n", qPrintable(sentence));
}

/// An option that takes an integer, and where the integer is stored.
struct NumberOption {
    const char* name;
    const char* valueName;
    const char* help;
    Range range;
    std::function<void(Settings&, int)> store;
};

const NumberOption NUMBER_OPTIONS[] = {
    {"port",
     "N",
     "Listen on port N; 0, the default, lets the kernel choose.",
     {0, 65535},
     [](Settings& s, int n) { s.port = n; }},
    {"unit", "N", "Be unit N, 1 to 4 (default 1).", {1, 4}, [](Settings& s, int n) { s.unit = n; }},
    {"delay",
     "MS",
     "Send every report MS milliseconds late.",
     {0, MOST},
     [](Settings& s, int n) { s.faults.delay = std::chrono::milliseconds(n); }},
    {"split",
     "N",
     "Write at most N bytes at a time, each piece in a segment of its own.",
     {1, MOST},
     [](Settings& s, int n) { s.faults.split = n; }},
    {"drop",
     "N",
     "Leave every Nth report of an answer out.",
     {1, MOST},
     [](Settings& s, int n) { s.faults.drop = n; }},
    {"reset-after",
     "BYTES",
     "Reset each connection after BYTES bytes.",
     {0, MOST},
     [](Settings& s, int n) { s.faults.reset_after = n; }},
    {"end-after",
     "BYTES",
     "End each connection in good order after BYTES bytes.",
     {0, MOST},
     [](Settings& s, int n) { s.faults.end_after = n; }},
    {"flood",
     "N",
     "Send N reports a second unasked; 0: as fast as each client takes them.",
     {0, 1'000'000},
     [](Settings& s, int n) { s.faults.flood = n; }},
    {"noise",
     "N",
     "Send up to N bytes of rubbish before each report.",
     {1, 1000},
     [](Settings& s, int n) { s.faults.noise = n; }},
    {"seed",
     "N",
     "Seed of the random choices of --flood and --noise (default 1).",
     {0, MOST},
     [](Settings& s, int n) { s.faults.seed = static_cast<std::uint32_t>(n); }},
};

/// Parses the command line. On a usage error prints one line and returns nothing.
std::optional<Settings> readSettings(const QCoreApplication& application) {
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("A simulated Lumbra unit: a whole unit on TCP, without hardware."));
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")},
                                  QStringLiteral("Print this."));
    parser.addOption(help);
    const QCommandLineOption version = parser.addVersionOption();
    const auto text = [](const char* latin1) { return QString::fromLatin1(latin1); };
    for (const NumberOption& option : NUMBER_OPTIONS)
        parser.addOption({text(option.name), text(option.help), text(option.valueName)});
    parser.addOption({text("listen"), text("Listen on ADDRESS (default 127.0.0.1)."), text("ADDRESS")});
    parser.addOption({text("state"), text("Keep the unit's state in FILE between runs."), text("FILE")});
    parser.addOption({text("silence"), text("Accept clients and read their commands, but never answer.")});
    parser.addOption({text("verbose"), text("Print every client, command and report on standard output.")});

    const auto refuse = [](const QString& sentence) {
        complain(sentence + QStringLiteral(" (--help lists the options)"));
        return std::nullopt;
    };
    if (!parser.parse(application.arguments()))
        return refuse(parser.errorText());
    if (parser.isSet(help))
        parser.showHelp();
    if (parser.isSet(version))
        parser.showVersion();
    if (!parser.positionalArguments().isEmpty())
        return refuse(
            QStringLiteral("Unexpected argument \"%1\".").arg(parser.positionalArguments().first()));
    Settings settings;
    for (const NumberOption& option : NUMBER_OPTIONS) {
        if (!parser.isSet(text(option.name)))
            continue;
        bool ok = false;
        const int number = parser.value(text(option.name)).toInt(&ok);
        if (!ok || !option.range.holds(number))
            return refuse(QStringLiteral("--%1 takes a whole number from %2 to %3, not \"%4\".")
                              .arg(text(option.name))
                              .arg(option.range.low)
                              .arg(option.range.high)
                              .arg(parser.value(text(option.name))));
        option.store(settings, number);
    }
    if (settings.faults.reset_after && settings.faults.end_after)
        return refuse(QStringLiteral("--reset-after and --end-after exclude each other."));
    if (parser.isSet(text("listen"))) {
        const QString address = parser.value(text("listen"));
        if (address != QLatin1String("localhost") && !settings.address.setAddress(address))
            return refuse(QStringLiteral("--listen takes an IP address, not \"%1\".").arg(address));
    }
    if (parser.isSet(text("state")) && parser.value(text("state")).isEmpty())
        return refuse(QStringLiteral("--state takes the name of a file."));
    settings.stateFile = parser.value(text("state"));
    settings.faults.silence = parser.isSet(text("silence"));
    settings.verbose = parser.isSet(text("verbose"));
    return settings;
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

int run(const QCoreApplication& application) {
    const std::optional<Settings> settings = readSettings(application);
    if (!settings)
        return USAGE_ERROR;

    Unit unit(settings->unit);
    const StateFile stateFile(settings->stateFile);
    const bool keeps = !settings->stateFile.isEmpty();
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
    UnitServer server(std::move(unit), settings->faults);
    if (settings->verbose)
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

    const lumbra::SignalPipe endSignals({SIGTERM, SIGINT, SIGHUP}, lumbra::SignalPipe::Takes::First);
    const QSocketNotifier notifier(endSignals.descriptor(), QSocketNotifier::Read);
    QObject::connect(&notifier, &QSocketNotifier::activated, &application, &QCoreApplication::quit);
    if (!server.listen(settings->address, static_cast<quint16>(settings->port))) {
        complain(QStringLiteral("Can't listen on %1: %2.")
                     .arg(endpoint(settings->address, static_cast<quint16>(settings->port)),
                          server.errorString()));
        return FAILURE;
    }
    output.write(QStringLiteral("Simulated unit %1 listens on %2")
                     .arg(settings->unit)
                     .arg(endpoint(server.address(), server.port()))
                     .toStdString());

    QCoreApplication::exec();
    const bool saved = !keeps || save();
    const UnitServer::Statistics& statistics = server.statistics();
    if (settings->verbose)
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
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("lumbra-unit-sim"));
    QCoreApplication::setApplicationVersion(QStringLiteral(LUMBRA_VERSION));
    try {
        return run(application);
    } catch (const std::exception& failure) {
        complain(
            QStringLiteral("The simulated unit can't run: %1.").arg(QString::fromLocal8Bit(failure.what())));
        return FAILURE;
    }
}

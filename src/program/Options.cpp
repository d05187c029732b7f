#include "program/Options.h"

#include <QCommandLineParser>

namespace lumbra {

namespace {

const QCommandLineOption
    CONSOLE(QStringLiteral("console"),
            QStringLiteral("Run on the console, without a window: commands on standard input, "
                           "replies and events on standard output."));
const QCommandLineOption JSON(QStringLiteral("json"), QStringLiteral("With --console: print JSON Lines."));
const QCommandLineOption FULLSCREEN(QStringLiteral("fullscreen"),
                                    QStringLiteral("Fill the whole screen, as on a wall panel."));
const QCommandLineOption
    DEMO(QStringLiteral("demo"),
         QStringLiteral("Start a simulated unit inside the program and reach it; settings are "
                        "thrown away at the end unless --settings is given."));
const QCommandLineOption
    CONNECT_TO(QStringLiteral("connect-to"),
               QStringLiteral("Make every connection to HOST:PORT instead of to the unit's "
                              "address; [ADDRESS]:PORT for IPv6."),
               QStringLiteral("HOST:PORT"));
const QCommandLineOption KEEP_CONNECTED(
    QStringLiteral("keep-connected"),
    QStringLiteral("Connect again without being asked while the link is closed, as on a wall panel."));
const QCommandLineOption SETTINGS_FILE(QStringLiteral("settings"),
                                       QStringLiteral("Keep the settings in FILE instead of the user's own."),
                                       QStringLiteral("FILE"));
const QCommandLineOption HELP({QStringLiteral("h"), QStringLiteral("help")}, QStringLiteral("Print this."));
const QCommandLineOption VERSION({QStringLiteral("v"), QStringLiteral("version")},
                                 QStringLiteral("Print the version."));

// Pairs of options that exclude each other, or of which the first needs the other.
struct Rule {
    const QCommandLineOption& option;
    const QCommandLineOption& other;
    bool needsOther;
};
const Rule RULES[] = {{DEMO, CONNECT_TO, false}, {FULLSCREEN, CONSOLE, false}, {JSON, CONSOLE, true}};

QString displayName(const QCommandLineOption& option) {
    return QStringLiteral("--") + option.names().constLast();
}

} // namespace

std::variant<Options, InformationRequest, UsageError> parseOptions(const QStringList& arguments) {
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("A remote control for a Lumbra unit."));
    parser.addOptions(
        {CONSOLE, JSON, FULLSCREEN, DEMO, CONNECT_TO, KEEP_CONNECTED, SETTINGS_FILE, HELP, VERSION});
    if (!parser.parse(arguments))
        return UsageError{parser.errorText()};
    if (!parser.positionalArguments().isEmpty())
        return UsageError{
            QStringLiteral("Unexpected argument \"%1\".").arg(parser.positionalArguments().constFirst())};
    for (const auto& [option, other, needsOther] : RULES)
        if (parser.isSet(option) && parser.isSet(other) != needsOther)
            return UsageError{(needsOther ? QStringLiteral("%1 needs %2.")
                                          : QStringLiteral("%1 and %2 exclude each other."))
                                  .arg(displayName(option), displayName(other))};

    Options options;
    options.console = parser.isSet(CONSOLE);
    options.json = parser.isSet(JSON);
    options.fullscreen = parser.isSet(FULLSCREEN);
    options.demo = parser.isSet(DEMO);
    options.keepConnected = parser.isSet(KEEP_CONNECTED);
    if (parser.isSet(CONNECT_TO)) {
        options.connectTo = parseHostPort(parser.value(CONNECT_TO).toStdString());
        if (!options.connectTo)
            return UsageError{QStringLiteral("--connect-to takes HOST:PORT, with a port from 1 to 65535, or "
                                             "[ADDRESS]:PORT for IPv6, not \"%1\".")
                                  .arg(parser.value(CONNECT_TO))};
    }
    options.settingsFile = parser.value(SETTINGS_FILE);
    if (parser.isSet(SETTINGS_FILE) && options.settingsFile.isEmpty())
        return UsageError{QStringLiteral("--settings takes the name of a file.")};

    if (parser.isSet(HELP))
        return InformationRequest{
            // The parser would take the program's name from the application object, which does not exist yet.
            parser.helpText().replace(QStringLiteral("<executable_name>"), QStringLiteral("lumbra-remote"))};
    if (parser.isSet(VERSION))
        return InformationRequest{QStringLiteral("lumbra-remote " LUMBRA_VERSION "\n")};
    return options;
}

} // namespace lumbra

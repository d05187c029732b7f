#include "program/Options.h"

#include "system/SocketAddress.h"

#include <algorithm>
#include <arpa/inet.h>
#include <cctype>
#include <utility>

namespace lumbra {

namespace {

/// "PORT", "ADDRESS:PORT", "[ADDRESS]:PORT" or "*:PORT".
std::optional<WebPlace> parseWebPlace(const QString& text) {
    const auto colon = text.lastIndexOf(QLatin1Char(':'));
    const auto digits = text.mid(colon + 1);
    bool isNumber = false;
    const auto port = digits.toUShort(&isNumber);
    if (!isNumber || !digits.front().isDigit())
        return std::nullopt;
    if (colon == -1)
        return WebPlace{QHostAddress(QHostAddress::LocalHost), port};
    auto host = text.left(colon);
    if (host == QLatin1String("*"))
        return WebPlace{QHostAddress(QHostAddress::Any), port};
    const bool isV6 = host.startsWith(QLatin1Char('[')) && host.endsWith(QLatin1Char(']'));
    if (isV6)
        host = host.mid(1, host.size() - 2);
    // An IPv4 address in full: "1.2.3" and "010.0.0.1" are read in different ways.
    in_addr four{};
    if (isV6 ? numericAddresses(host.toStdString(), port).empty() || !host.contains(QLatin1Char(':'))
             : inet_pton(AF_INET, qPrintable(host), &four) != 1)
        return std::nullopt;
    return WebPlace{QHostAddress(host), port};
}

/// Of letters, digits, dots and hyphens.
bool isHostName(const std::string& name) {
    return isPossibleHost(name) && std::all_of(name.begin(), name.end(), [](unsigned char c) {
               return std::isalnum(c) || c == '.' || c == '-' || c == '_';
           });
}

} // namespace

CommandLine commandLine(Options& options) {
    return {
        .program = "lumbra-remote",
        .description = "A remote control for a Lumbra unit.",
        .options = {
            {.name = "console",
             .help = "Run on the console, without a window: commands on standard input, replies and "
                     "events on standard output.",
             .store = storesFlag(options.console)},
            {.name = "json",
             .help = "Print JSON Lines, one object a line; only with --console or --web.",
             .store = storesFlag(options.json),
             .needs = {"console", "web"}},
            {.name = "fullscreen",
             .help = "Fill the whole screen, as on a wall panel.",
             .store = storesFlag(options.fullscreen),
             .excludes = {"console"}},
            {.name = "web",
             .value = "[ADDRESS:]PORT",
             .help = "Serve a remote to browsers on PORT of 127.0.0.1, or of ADDRESS: an IP address, "
                     "[ADDRESS] for "
                     "IPv6, or * for all of this machine. Port 0 lets the kernel choose.",
             .store =
                 [&options](const QString& value) {
                     options.web = parseWebPlace(value);
                     return options.web.has_value();
                 },
             .takes = QStringLiteral("PORT or ADDRESS:PORT, with a port from 0 to 65535"),
             .excludes = {"console", "fullscreen"},
             .isPublic = true},
            {.name = "web-open",
             .help = "Let in every browser that reaches the port, without pairing.",
             .store = storesFlag(options.webOpen),
             .needs = {"web"}},
            {.name = "web-key",
             .value = "FILE",
             .help = "Keep in FILE the key by which paired browsers are known again; it is made if it is "
                     "missing. "
                     "Deleting it unpairs all of them. Without it pairings end with the program.",
             .store = storesFile(options.webKeyFile),
             .takes = takesFile(),
             .needs = {"web"}},
            {.name = "web-name",
             .value = "NAME",
             .help = "Serve the page under the host name NAME, too, as behind a proxy; may be given again. "
                     "Browsers "
                     "are then paired on this machine, too.",
             .store =
                 [&options](const QString& value) {
                     options.webNames.push_back(asciiHost(value.toStdString()));
                     return isHostName(options.webNames.back());
                 },
             .takes = QStringLiteral("a host name, without a port"),
             .needs = {"web"},
             .repeats = true},
            {.name = "demo",
             .help = "Start a simulated unit inside the program and reach it; settings are thrown away "
                     "at the end unless --settings is given.",
             .store = storesFlag(options.demo),
             .excludes = {"connect-to"}},
            {.name = "connect-to",
             .value = "HOST:PORT",
             .help = "Make every connection to HOST:PORT instead of to the unit's address; "
                     "[ADDRESS]:PORT for IPv6.",
             .store =
                 [&options](const QString& value) {
                     options.connectTo = parseHostPort(value.toStdString());
                     return options.connectTo.has_value();
                 },
             .takes = QStringLiteral("HOST:PORT, with a port from 1 to 65535, or [ADDRESS]:PORT for IPv6"),
             .isPublic = true},
            {.name = "keep-connected",
             .help = "Connect again by itself while the link is closed, as on a wall panel.",
             .store = storesFlag(options.keepConnected)},
            {.name = "settings",
             .value = "FILE",
             .help = "Keep the settings in FILE instead of the user's own.",
             .store = storesFile(options.settingsFile),
             .takes = takesFile()},
            {.name = "trace",
             .value = "FILE",
             .help = "Write to FILE every byte that is sent and received, and what becomes of the link. It "
                     "holds the names of rooms and the unit's address.",
             .store = storesFile(options.traceFile),
             .takes = takesFile()},
            takesNumber({.name = "trace-size",
                         .value = "MIB",
                         .help = "End the trace once its file holds MIB mebibytes, 1 to 1024 (default 64).",
                         .needs = {"trace"}},
                        1, TraceFile::HIGHEST_LIMIT, [&options](int n) { options.traceLimit = n; }),
        }};
}

void chooseDemo(Options& options) {
    options.demo = true;
    options.settingsFile.clear();
    options.given.push_back({.name = "demo", .isPublic = true});
}

std::variant<Options, InformationRequest, UsageError> parseOptions(const QStringList& arguments) {
    Options options;
    auto parsed = commandLine(options).parse(arguments);
    if (auto* given = std::get_if<GivenOptions>(&parsed)) {
        options.given = std::move(*given);
        return options;
    }
    if (auto* wrong = std::get_if<UsageError>(&parsed))
        return std::move(*wrong);
    return std::get<InformationRequest>(std::move(parsed));
}

} // namespace lumbra

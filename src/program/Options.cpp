#include "program/Options.h"

#include <utility>

namespace lumbra {

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
             .help = "Print JSON Lines, one object a line; only with --console.",
             .store = storesFlag(options.json),
             .needs = "console"},
            {.name = "fullscreen",
             .help = "Fill the whole screen, as on a wall panel.",
             .store = storesFlag(options.fullscreen),
             .excludes = {"console"}},
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
                         .needs = "trace"},
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

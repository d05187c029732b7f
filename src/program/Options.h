#pragma once

#include "system/CommandLine.h"
#include "system/HostPort.h"
#include "system/TraceFile.h"

#include <QHostAddress>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace lumbra {

/// Where the page is served.
struct WebPlace {
    QHostAddress address;
    std::uint16_t port; ///< 0: the kernel chooses
};

/// The options of the command line.
struct Options {
    bool console = false;              ///< the console front end
    bool json = false;                 ///< JSON Lines on standard output
    bool fullscreen = false;           ///< the window fills the screen
    bool demo = false;                 ///< a simulated unit in the process
    std::optional<WebPlace> web;       ///< the web front end, and where it is served
    bool webOpen = false;              ///< browsers need not be paired
    QString webKeyFile;                ///< empty: pairings end with the program
    std::vector<std::string> webNames; ///< further host names of the page, in ASCII
    bool keepConnected = false;        ///< a closed link is opened again without the user
    std::optional<HostPort> connectTo; ///< replaces the unit's address in every connection
    QString settingsFile;              ///< empty: the user's default file
    QString traceFile;                 ///< empty: nothing is traced
    int traceLimit = TraceFile::DEFAULT_LIMIT;
    GivenOptions given; ///< for a trace
};

/// Makes `options` those of a user who has asked for the demo: it leaves nothing in the settings.
void chooseDemo(Options& options);

/// The command line of the program, which stores into `options`. `options` outlives it.
CommandLine commandLine(Options& options);

/// Parses the command line. The first argument is the program. Needs no application object. Any thread.
std::variant<Options, InformationRequest, UsageError> parseOptions(const QStringList& arguments);

} // namespace lumbra

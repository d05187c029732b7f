#pragma once

#include "system/HostPort.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <variant>

namespace lumbra {

/// What the command line asks for.
struct Options {
    bool console = false;              ///< the console instead of the touch screens
    bool json = false;                 ///< the console's JSON Lines
    bool fullscreen = false;           ///< the touch screens, on a wall panel
    bool demo = false;                 ///< a simulated unit in the process
    std::optional<HostPort> connectTo; ///< where every connection goes instead of to the unit's address
    QString settingsFile;              ///< empty: the user's own
};

/// The command line asks for a text on standard output, and nothing else.
struct InformationRequest {
    QString text;
};

/// The command line is wrong; one line that says how.
struct UsageError {
    QString sentence;
};

/// Reads the command line; the first argument is the program. Needs no application object.
std::variant<Options, InformationRequest, UsageError> parseOptions(const QStringList& arguments);

} // namespace lumbra

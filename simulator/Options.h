#pragma once

#include "simulator/Faults.h"
#include "system/CommandLine.h"

#include <QHostAddress>
#include <QString>

namespace lumbra::sim {

/// The options of the simulated unit's command line.
struct Options {
    int port = 0; ///< 0: the kernel chooses
    int unit = 1;
    QHostAddress address{QHostAddress::LocalHost};
    QString stateFile;  ///< empty: the state is not kept
    QString replayFile; ///< not empty: a trace is played instead of a unit
    bool fast = false;  ///< the trace is played without its pauses
    bool verbose = false;
    Faults faults;
};

/// The command line of the simulated unit, which stores into `options`. `options` outlives it.
CommandLine commandLine(Options& options);

} // namespace lumbra::sim

#include "simulator/Options.h"

#include <limits>

namespace lumbra::sim {

namespace {

constexpr int MOST = std::numeric_limits<int>::max();

} // namespace

CommandLine commandLine(Options& options) {
    auto& faults = options.faults;
    return {
        .program = "lumbra-unit-sim",
        .description = "A simulated Lumbra unit: a whole unit on TCP, without hardware.",
        .options = {
            takesNumber({.name = "port",
                         .value = "N",
                         .help = "Listen on port N; 0, the default, lets the kernel choose."},
                        0, 65535, [&options](int n) { options.port = n; }),
            {.name = "listen",
             .value = "ADDRESS",
             .help = "Listen on ADDRESS (default 127.0.0.1).",
             .store =
                 [&options](const QString& value) {
                     return value == QLatin1String("localhost") || options.address.setAddress(value);
                 },
             .takes = QStringLiteral("an IP address"),
             .choices = "127.0.0.1 ::1 0.0.0.0 ::"},
            takesNumber({.name = "unit",
                         .value = "N",
                         .help = "Be unit N, 1 to 4 (default 1).",
                         .choices = "1 2 3 4"},
                        1, 4, [&options](int n) { options.unit = n; }),
            {.name = "state",
             .value = "FILE",
             .help = "Keep the unit's state in FILE between runs.",
             .store = storesFile(options.stateFile),
             .takes = takesFile()},
            {.name = "replay",
             .value = "FILE",
             .help =
                 "Instead of a unit, play the unit's side of the trace in FILE, which lumbra-remote --trace "
                 "has written.",
             .store = storesFile(options.replayFile),
             .takes = takesFile(),
             .excludes = {"state", "unit", "delay", "split", "drop", "reset-after", "end-after", "flood",
                          "noise", "silence", "seed"}},
            {.name = "fast",
             .help = "Play the trace without its pauses: send as soon as the remote has sent what it sent in "
                     "the trace.",
             .store = storesFlag(options.fast),
             .needs = {"replay"}},
            {.name = "verbose",
             .help = "Print every client, command and report on standard output.",
             .store = storesFlag(options.verbose)},
            takesNumber({.name = "delay", .value = "MS", .help = "Send every report MS milliseconds late."},
                        0, MOST, [&faults](int n) { faults.delay = std::chrono::milliseconds(n); }),
            takesNumber({.name = "split",
                         .value = "N",
                         .help = "Write at most N bytes at a time, each piece in a segment of its own."},
                        1, MOST, [&faults](int n) { faults.split = n; }),
            takesNumber({.name = "drop", .value = "N", .help = "Leave every Nth report of an answer out."}, 1,
                        MOST, [&faults](int n) { faults.drop = n; }),
            takesNumber({.name = "reset-after",
                         .value = "BYTES",
                         .help = "Reset each connection after BYTES bytes.",
                         .excludes = {"end-after"}},
                        0, MOST, [&faults](int n) { faults.reset_after = n; }),
            takesNumber({.name = "end-after",
                         .value = "BYTES",
                         .help = "End each connection in good order after BYTES bytes."},
                        0, MOST, [&faults](int n) { faults.end_after = n; }),
            takesNumber({.name = "flood",
                         .value = "N",
                         .help = "Send N reports a second unasked; 0: as fast as each client takes them."},
                        0, 1'000'000, [&faults](int n) { faults.flood = n; }),
            takesNumber(
                {.name = "noise", .value = "N", .help = "Send up to N bytes of rubbish before each report."},
                1, 1000, [&faults](int n) { faults.noise = n; }),
            {.name = "silence",
             .help = "Accept clients and read their commands, but never answer.",
             .store = storesFlag(faults.silence)},
            takesNumber({.name = "seed",
                         .value = "N",
                         .help = "Seed of the random choices of --flood and --noise (default 1)."},
                        0, MOST, [&faults](int n) { faults.seed = static_cast<std::uint32_t>(n); }),
        }};
}

} // namespace lumbra::sim

#pragma once

#include "platform/SettingsStore.h"

#include <QByteArray>

#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <variant>
#include <vector>

namespace lumbra {

/// One line of a trace behind the first: an event of a link, or bytes.
struct TraceEntry {
    enum class Kind : std::uint8_t {
        Attempt,  ///< a pair of streams was created
        Opened,   ///< both directions are open
        Error,    ///< the link has failed
        End,      ///< the unit has closed the link
        Closed,   ///< the program has released the link; its last entry
        Sent,     ///< the program has written
        Received, ///< the program has read
        Full,     ///< the trace has reached its limit, `limit`; its last entry, of no link
        Step,     ///< what the user did, put in by hand for a test; of no link
    };
    Kind kind{};
    int link = 0;                     ///< counted from 1 in the order of the attempts
    std::string text{};               ///< the bytes sent or received, the host (UTF-8), or the step
    std::uint16_t port = 0;           ///< of an attempt
    std::int64_t limit = 0;           ///< in bytes
    std::string notSent{};            ///< the bytes of a write that the network did not take
    bool failed = false;              ///< the write was an error
    std::chrono::microseconds time{}; ///< since the start of the trace
    int line = 0;                     ///< of the file, from 1; only of a trace that was read
};

/// The first line of a trace: what wrote it.
struct TraceStart {
    std::string options; ///< the command line without names of files, the address as it was connected to
    std::map<std::string, SettingValue, std::less<>> settings{}; ///< at the start, without the address
};

/// A trace that was read.
struct Trace {
    TraceStart start;
    std::vector<TraceEntry> entries;
};

/// A longer file is not read as a trace.
inline constexpr std::int64_t LONGEST_TRACE = std::int64_t{1} << 30; // bytes

/// How the first line of every trace begins.
inline constexpr std::string_view TRACE_MARK = R"({"trace":)";

/// The lines of a trace, each one JSON object with its line feed, in ASCII. Bytes are characters of
/// ISO 8859-1. Any thread.
std::string formatTraceStart(const TraceStart& start);
std::string formatTraceEntry(const TraceEntry& entry);

/// Parses a whole trace. Returns what is wrong, with the line, as a sentence. A last line without its line
/// feed is left out: the program was killed while it wrote it. Fields that are not known are ignored. Any
/// thread.
std::variant<Trace, std::string> parseTrace(const QByteArray& text);

/// Reads and parses a file; the sentence names it.
std::variant<Trace, std::string> readTrace(const std::string& path);

} // namespace lumbra

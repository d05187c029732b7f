#pragma once

#include "platform/Lifetime.h"
#include "platform/MainQueue.h"
#include "system/Trace.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <mutex>
#include <string>

namespace lumbra {

/// The file that a trace is written to. What one turn of the main loop has added is written at its end, in one
/// piece and without waiting: a program that is killed loses at most its last turn.
///
/// Once a write fails the trace is over: the file keeps its whole lines, and one sentence reports it. If the
/// name is that of a pipe or a device, a reader that is too slow is such a failure. The trace is also over once
/// it has reached its limit, which its last line tells.
class TraceFile {
public:
    /// Receives a sentence for the user. Called on the main thread; must not throw.
    using Report = std::function<void(const std::string& sentence)>;

    // The limits of a trace, in MiB.
    static constexpr int DEFAULT_LIMIT = 64;
    static constexpr int HIGHEST_LIMIT = LONGEST_TRACE >> 20;

    /// Empties the file, or creates it; from then on only its owner can read it. A file that holds something
    /// other than a trace, or that another program writes its trace to, is left as it is. `limit` is in MiB.
    /// `queue` outlives this object. Main thread only.
    TraceFile(MainQueue& queue, std::string path, Report report, int limit = DEFAULT_LIMIT);
    /// Writes what is left.
    ~TraceFile();
    TraceFile(const TraceFile&) = delete;
    TraceFile& operator=(const TraceFile&) = delete;

    /// Why the trace could not be started, as a sentence; empty on success.
    const std::string& error() const { return error_; }

    /// Adds the first line. Main thread only.
    void start(const TraceStart& start);
    /// Adds an entry and sets its time. Any thread.
    void add(TraceEntry entry);

private:
    std::string open();
    void append(const std::function<std::string()>& line);
    std::string formatNow(TraceEntry entry) const;
    void write();

    MainQueue& queue_;
    const std::string path_;
    const Report report_;
    const std::int64_t limit_; // bytes
    const std::chrono::steady_clock::time_point begin_ = std::chrono::steady_clock::now();

    std::mutex mutex_;
    std::string pending_;
    std::int64_t added_ = 0; ///< bytes, written or pending
    bool posted_ = false;
    bool isOver_ = false;
    bool isFull_ = false;

    // The main thread's alone.
    int file_ = -1;
    std::int64_t size_ = 0;
    std::string error_;
    Lifetime life_;
};

} // namespace lumbra

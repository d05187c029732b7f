#pragma once

#include "platform/MainQueue.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace lumbra::console {

/// Writes to a descriptor at the end of each turn of the main loop, as much as its reader takes. Nothing but `finish`
/// waits for the reader: who prints much asks `isBehind` and `isFull` first. Where nobody can read any more, all
/// further output is dropped. Main thread only.
class DescriptorOutput {
public:
    /// From this many pending bytes on a write does not wait for the end of the turn.
    static constexpr std::size_t FLUSH_SIZE = std::size_t{1} << 14;
    /// The pending bytes at which commands wait for the reader.
    static constexpr std::size_t FULL_SIZE = std::size_t{1} << 20;

    /// `descriptor` stays the caller's. `finish` gives up once `interrupt` can be read. `around` is called before (true)
    /// and after (false) each piece of output; it may be null.
    DescriptorOutput(int descriptor, int interrupt, MainQueue& queue, std::function<void(bool)> around);

    /// Prints one or more whole lines, each with its end.
    void write(std::string_view lines);
    /// Writes what the reader takes now.
    void flush();
    /// Writes everything, however long the reader takes, unless interrupted.
    void finish();

    /// The reader has not taken all that it was offered.
    bool isBehind() const { return behind_; }
    /// So much waits for the reader that commands should, too.
    bool isFull() const { return pending_.size() - written_ >= FULL_SIZE; }
    /// Has `caughtUp` called each time the reader has taken everything after it was behind.
    void onCaughtUp(std::function<void()> caughtUp) { caughtUp_ = std::move(caughtUp); }

private:
    void scheduleFlush(bool later);
    bool isWritable(int milliseconds);
    void writePending(bool waits);

    int descriptor_;
    int interrupt_;
    MainQueue& queue_;
    std::function<void(bool)> around_;
    std::function<void()> caughtUp_;
    std::string pending_;
    std::size_t written_ = 0; ///< of pending
    bool behind_ = false;
    bool scheduled_ = false;
    bool closed_ = false;
    std::shared_ptr<const char> life_ = std::make_shared<const char>();
};

} // namespace lumbra::console

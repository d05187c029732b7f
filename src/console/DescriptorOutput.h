#pragma once

#include "platform/MainQueue.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace lumbra::console {

/// Writes to a descriptor at the end of each turn of the main loop, as much as the reader takes. Only
/// `finish` waits for the reader; a caller with much output checks `isBehind` and `isFull` first. Once the
/// reader is gone, all output is dropped. Main thread only.
class DescriptorOutput {
public:
    /// With this many pending bytes a write does not wait for the end of the turn.
    static constexpr std::size_t FLUSH_SIZE = std::size_t{1} << 14;
    /// With this many pending bytes commands wait for the reader.
    static constexpr std::size_t FULL_SIZE = std::size_t{1} << 20;

    /// The caller owns `descriptor`. `finish` gives up once `interrupt` is readable. `around` is called
    /// before (true) and after (false) each piece of output; it may be null.
    DescriptorOutput(int descriptor, int interrupt, MainQueue& queue, std::function<void(bool)> around);

    /// Writes one or more complete lines, with their line ends.
    void write(std::string_view lines);
    /// Writes as much as the reader takes now.
    void flush();
    /// Writes everything, waiting for the reader unless interrupted.
    void finish();

    /// The reader has not taken everything yet.
    bool isBehind() const { return behind_; }
    /// So many bytes are pending that commands should wait.
    bool isFull() const { return pending_.size() - written_ >= FULL_SIZE; }
    /// Sets the function that is called each time the reader has caught up after being behind.
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
    std::size_t written_ = 0; ///< the bytes of `pending_` that are written
    bool behind_ = false;
    bool scheduled_ = false;
    bool closed_ = false;
    std::shared_ptr<const char> life_ = std::make_shared<const char>();
};

} // namespace lumbra::console

#pragma once

#include "platform/Lifetime.h"
#include "platform/MainQueue.h"
#include "script/Output.h"

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace lumbra::console {

/// Writes to a descriptor at the end of each turn of the main loop, as much as the reader takes. Only
/// `finish` waits for the reader; a caller with much output checks `isBehind` and `isFull` first. Once the
/// reader is gone, all output is dropped. Main thread only.
class DescriptorOutput final : public script::Output {
public:
    /// With this many bytes of lines a write does not wait for the end of the turn.
    static constexpr std::size_t FLUSH_SIZE = std::size_t{1} << 14;
    /// With this many pending bytes commands wait for the reader.
    static constexpr std::size_t FULL_SIZE = std::size_t{1} << 20;

    /// The caller owns `descriptor`. `finish` gives up once `interrupt` is readable. `around` is called
    /// before (true) and after (false) the lines of a turn; what it prints stands around them. It
    /// may be null.
    DescriptorOutput(int descriptor, int interrupt, MainQueue& queue, std::function<void(bool)> around);
    ~DescriptorOutput() override;
    DescriptorOutput(const DescriptorOutput&) = delete;
    DescriptorOutput& operator=(const DescriptorOutput&) = delete;

    void write(std::string_view lines) override;
    /// Prints what is no line, such as the echo of a key: before the lines that have not been written yet.
    void print(std::string_view text);
    /// Writes as much as the reader takes now.
    void flush();
    /// Writes everything, waiting for the reader unless interrupted.
    void finish();

    bool isBehind() const override { return behind_; }
    /// So many bytes are pending that commands should wait.
    bool isFull() const { return lines_.size() + pending_.size() - written_ >= FULL_SIZE; }

private:
    void scheduleFlush(bool later);
    bool isWritable(bool waits) const;
    void writeAll(bool waits);
    void writePending(bool waits);

    int descriptor_;
    bool owned_; ///< the descriptor is ours
    int interrupt_;
    MainQueue& queue_;
    std::function<void(bool)> around_;
    std::string lines_;       ///< to be written once all of `pending_` is
    std::string pending_;     ///< as it goes to the descriptor
    std::size_t written_ = 0; ///< the bytes of `pending_` that are written
    bool behind_ = false;
    bool scheduled_ = false;
    bool closed_ = false;
    Lifetime life_;
};

} // namespace lumbra::console

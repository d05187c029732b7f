#pragma once

#include "console/Output.h"
#include "platform/MainQueue.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <string>

namespace lumbra {

/// Writes to a descriptor at the end of each turn of the main loop. A reader that is slow holds up nothing
/// until `MOST_PENDING` bytes wait for it; from there on the program waits for the reader, so that nothing
/// grows without bound and no line is lost. Where nobody can read any more, all further output is dropped.
/// Main thread only.
class DescriptorOutput final : public Output {
public:
    static constexpr std::size_t MOST_PENDING = std::size_t{1} << 20;
    static constexpr std::size_t CONGESTED = std::size_t{1} << 16;

    /// `descriptor` stays the caller's. A wait for the reader ends, and with it all output, once `interrupt`
    /// can be read. `around` is called before (true) and after (false) each piece of output; it may be null.
    DescriptorOutput(int descriptor, int interrupt, MainQueue& queue, std::function<void(bool)> around);

    void write(std::string_view lines) override;
    /// Writes what the reader takes now.
    void flush();
    /// Writes everything, however long the reader takes, unless interrupted.
    void finish();
    /// The reader is behind: commands should wait for it.
    bool isCongested() const { return pending_.size() - written_ > CONGESTED; }

private:
    void scheduleFlush(bool later);
    bool waitForReader(int milliseconds);
    void writeDownTo(std::size_t mostLeft);

    int descriptor_;
    int interrupt_;
    MainQueue& queue_;
    std::function<void(bool)> around_;
    std::string pending_;
    std::size_t written_ = 0; ///< of pending
    bool scheduled_ = false;
    bool closed_ = false;
    std::shared_ptr<char> life_ = std::make_shared<char>();
};

} // namespace lumbra

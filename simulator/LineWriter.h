#pragma once

#include <chrono>
#include <cstddef>
#include <memory>
#include <string>

namespace lumbra::sim {

/// Writes lines to a descriptor on a thread of its own, so that no reader holds up the caller. Lines for
/// which a slow reader leaves no room are dropped, and a line in their place reports how many. Once the
/// reader is gone, all are dropped. May be called by one thread at a time.
class LineWriter {
public:
    /// The most bytes that wait for the reader.
    static constexpr std::size_t MOST_WAITING = std::size_t{1} << 20;

    /// `descriptor` stays open for as long as the program may write. Throws std::system_error if the system
    /// gives no thread.
    explicit LineWriter(int descriptor);
    /// Does not wait for the reader. A blocked write ends with the program.
    ~LineWriter();
    LineWriter(const LineWriter&) = delete;
    LineWriter& operator=(const LineWriter&) = delete;

    void write(const std::string& line);

    /// Waits until everything is written. False if that takes longer than `patience`.
    bool flush(std::chrono::milliseconds patience);

private:
    struct Shared;
    static void run(const std::shared_ptr<Shared>& shared);

    std::shared_ptr<Shared> shared_;
};

} // namespace lumbra::sim

#pragma once

#include <chrono>
#include <cstddef>
#include <memory>
#include <string>

namespace lumbra::sim {

/// Writes lines to a descriptor on a thread of its own, so that no reader ever holds the caller up. Lines
/// that a slow reader leaves no room for are dropped, and a line in their place tells how many; once the
/// reader is gone, all are. One thread at a time calls it.
class LineWriter {
public:
    /// Bytes that may wait for the reader.
    static constexpr std::size_t MOST_WAITING = std::size_t{1} << 20;

    /// `descriptor` stays open as long as the program may be writing. Throws std::system_error where the
    /// system gives no thread.
    explicit LineWriter(int descriptor);
    /// Does not wait for the reader: a write that hangs ends with the program.
    ~LineWriter();
    LineWriter(const LineWriter&) = delete;
    LineWriter& operator=(const LineWriter&) = delete;

    void write(const std::string& line);

    /// Waits until everything is written; false if `patience` ran out first.
    bool flush(std::chrono::milliseconds patience);

private:
    struct Shared;
    static void run(const std::shared_ptr<Shared>& shared);

    std::shared_ptr<Shared> shared_;
};

} // namespace lumbra::sim

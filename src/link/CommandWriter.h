#pragma once

#include "platform/Streams.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace lumbra {

/// Writes commands to one output stream, each as a whole or not at all, from any number of senders. If
/// the network takes only a part of a command, the rest goes out before anything else. Main thread only.
class CommandWriter {
public:
    /// Writes one command. Returns its length, 0 if the network takes none of it now, or -1 on an error.
    /// What is refused is not queued.
    std::ptrdiff_t write(OutputStream& output, std::span<const std::uint8_t> command) {
        if (const auto failed = writeRest(output); failed < 0 || !rest_.empty())
            return failed;
        const auto count = output.write(command);
        if (count <= 0)
            return count;
        const auto taken = command.subspan(static_cast<std::size_t>(count));
        rest_.assign(taken.begin(), taken.end());
        return static_cast<std::ptrdiff_t>(command.size());
    }

    /// Writes what is left of the last command, as far as the network takes it. Returns -1 on an error, else 0.
    std::ptrdiff_t writeRest(OutputStream& output) {
        if (rest_.empty())
            return 0;
        const auto count = output.write(rest_);
        rest_.erase(rest_.begin(), rest_.begin() + std::max<std::ptrdiff_t>(count, 0));
        return std::min<std::ptrdiff_t>(count, 0);
    }

    /// Whether a command may follow.
    bool isWhole() const { return rest_.empty(); }

private:
    std::vector<std::uint8_t> rest_;
};

} // namespace lumbra

#pragma once

#include <chrono>
#include <cstdint>
#include <optional>

namespace lumbra::sim {

/// The faults of a simulated unit. The default is a unit without faults.
struct Faults {
    std::chrono::milliseconds delay{0}; ///< every report is sent this much later, in order
    int split = 0;                      ///< most bytes of a write, each a segment of its own; 0: no limit
    int drop = 0;                       ///< every Nth report of an answer is left out; 0: none
    std::optional<std::int64_t> reset_after{}; ///< a connection is reset after this many bytes
    std::optional<std::int64_t> end_after{};   ///< a connection is closed normally after this many bytes
    std::optional<int> flood{};                ///< unsolicited reports a second; 0: as fast as a client reads
    int noise = 0;                             ///< up to this many random bytes before each report
    bool silence = false;                      ///< accepts and reads, never sends a byte
    std::uint32_t seed = 1;                    ///< of the random choices of flood and noise

    bool operator==(const Faults&) const = default;
};

} // namespace lumbra::sim

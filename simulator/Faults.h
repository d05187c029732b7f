#pragma once

#include <chrono>
#include <cstdint>
#include <optional>

namespace lumbra::sim {

/// How a simulated unit misbehaves. A fresh value is a unit without faults.
struct Faults {
    std::chrono::milliseconds delay{0};        ///< every report leaves this much later, in order
    int split = 0;                             ///< most bytes in a write, each a segment of its own; 0: whole
    int drop = 0;                              ///< every Nth report of an answer is left out; 0: none
    std::optional<std::int64_t> reset_after{}; ///< a connection is reset after this many bytes
    std::optional<std::int64_t> end_after{};   ///< a connection is closed in good order after this many bytes
    std::optional<int> flood{}; ///< unasked reports a second; 0: as fast as a client takes them
    int noise = 0;              ///< up to this many random bytes before each report
    bool silence = false;       ///< accepts and reads, never sends a byte
    std::uint32_t seed = 1;     ///< of the random choices that flood and noise make
};

} // namespace lumbra::sim

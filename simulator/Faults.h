#pragma once

#include <chrono>
#include <cstdint>
#include <optional>

namespace lumbra::sim {

/// How a simulated unit misbehaves. A fresh value is a unit without faults.
struct Faults {
    std::chrono::milliseconds delay{0}; ///< every report leaves this much later, in order
    int split = 0; ///< writes of at most this many bytes, each in a segment of its own; 0: whole
    int drop = 0;  ///< of each answer every so-manieth report is left out; 0: none
    std::optional<std::int64_t> reset_after; ///< after so many bytes a connection is reset
    std::optional<std::int64_t> end_after;   ///< after so many bytes a connection is closed in good order
    std::optional<int> flood; ///< so many reports a second unasked; 0: as fast as each client takes them
    int noise = 0;            ///< up to this many bytes of rubbish before each report
    bool silence = false;     ///< accepts and reads, never sends a byte
    std::uint32_t seed = 1;   ///< of the random choices that flood and noise make
};

} // namespace lumbra::sim

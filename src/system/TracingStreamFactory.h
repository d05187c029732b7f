#pragma once

#include "platform/Streams.h"
#include "system/TraceFile.h"

#include <atomic>
#include <cstdint>
#include <string>

namespace lumbra {

/// Traces all pairs of another factory. A traced stream behaves as the one inside it does: the same calls reach
/// that stream, and the same events the delegate, in the same order and at the same times.
class TracingStreamFactory final : public StreamFactory {
public:
    /// `streams` creates the pairs. Both outlive this factory and its streams.
    TracingStreamFactory(StreamFactory& streams, TraceFile& trace) : streams_(streams), trace_(trace) {}

    StreamPair createPair(const std::string& host, std::uint16_t port) override;

private:
    StreamFactory& streams_;
    TraceFile& trace_;
    std::atomic<int> links_ = 0;
};

} // namespace lumbra

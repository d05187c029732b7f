#pragma once

#include "platform/Streams.h"
#include "system/HostPort.h"

#include <utility>

namespace lumbra {

/// Connects every pair to one place, whatever host and port are requested: a tunnel or a simulated unit.
class RedirectingStreamFactory final : public StreamFactory {
public:
    /// `streams` creates the pairs and outlives this factory.
    RedirectingStreamFactory(StreamFactory& streams, HostPort place)
        : streams_(streams), place_(std::move(place)) {}

    StreamPair createPair(const std::string&, std::uint16_t) override {
        return streams_.createPair(place_.host, place_.port);
    }

private:
    StreamFactory& streams_;
    const HostPort place_;
};

} // namespace lumbra

#pragma once

#include "platform/MainQueue.h"
#include "platform/Streams.h"
#include "system/HostLookups.h"
#include "system/SocketAddress.h"

#include <chrono>
#include <cstdint>
#include <string>

namespace lumbra {

/// Creates stream pairs over plain TCP sockets. `createPair` may be called on any thread; the streams need
/// the event loop of the application object from their first call on.
///
/// Details beyond the contract of Stream:
/// - A name is looked up off the main loop. Its addresses are tried in order, each with an equal share of the
///   remaining time. Text that cannot be a host (empty, with blanks, too long) fails like an unknown name.
/// - OpenCompleted is reported on the input first. A failed connect, an end and an error are the last event
///   of the pair, reported on the input, or on the output if the input is closed.
/// - Events wait while their stream is not scheduled or has no delegate.
/// - One turn of the main loop reads at most 64 KiB. Unread bytes are reported again after a read and before
///   the last event. Nothing more is received while 64 KiB are unread.
/// - `read` returns -1 if nothing has arrived.
/// - `write` does not queue: what the system does not take at once is never sent. HasSpaceAvailable follows a
///   short write, once. A failed write is followed by ErrorOccurred.
/// - A unit that silently stops answering is an error within about half a minute.
class SocketStreamFactory final : public StreamFactory {
public:
    static constexpr std::chrono::seconds CONNECT_DEADLINE{10};

    /// `queue` and this factory outlive the streams. `deadline` is the time for the look-up and all connects
    /// of a pair.
    explicit SocketStreamFactory(MainQueue& queue, std::chrono::milliseconds deadline = CONNECT_DEADLINE,
                                 Resolver resolver = resolveAddresses);

    StreamPair createPair(const std::string& host, std::uint16_t port) override;

private:
    MainQueue& queue_;
    const std::chrono::milliseconds deadline_;
    HostLookups lookups_;
};

} // namespace lumbra

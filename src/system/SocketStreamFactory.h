#pragma once

#include "platform/MainQueue.h"
#include "platform/Streams.h"
#include "system/HostLookups.h"
#include "system/SocketAddress.h"

#include <chrono>
#include <cstdint>
#include <string>

namespace lumbra {

/// Creates stream pairs over plain TCP sockets. `createPair` on any thread; the streams need the application
/// object's event loop from their first call on.
///
/// What a pair does beyond the contract of Stream:
/// - A name is looked up beside the main loop; its addresses are tried in order, each with an equal share of the time
///   that is left. Text that can't be a host (empty, with blanks, too long) fails like an unknown name.
/// - OpenCompleted comes on the input first. A failed connect, an end and an error are one last event of the pair,
///   reported on the input, or on the output where the input is closed.
/// - Events wait while their stream is not scheduled or has no delegate.
/// - One turn of the main loop reads at most 64 KiB. Bytes left unread are offered again after a read, and before the
///   last event; nothing more is received while 64 KiB wait.
/// - `read` returns -1 where nothing has arrived.
/// - `write` keeps nothing back: what the system does not take now is never sent. HasSpaceAvailable follows a short
///   write, once. A failed write is followed by ErrorOccurred.
/// - A unit that stops answering without a word is an error within about half a minute.
class SocketStreamFactory final : public StreamFactory {
public:
    static constexpr std::chrono::seconds CONNECT_DEADLINE{10};

    /// `queue` and this factory outlive the streams; `deadline` holds for the look-up and all connects of a pair.
    explicit SocketStreamFactory(MainQueue& queue, std::chrono::milliseconds deadline = CONNECT_DEADLINE,
                                 Resolver resolver = resolveAddresses);

    StreamPair createPair(const std::string& host, std::uint16_t port) override;

private:
    MainQueue& queue_;
    const std::chrono::milliseconds deadline_;
    HostLookups lookups_;
};

} // namespace lumbra

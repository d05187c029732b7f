#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>

namespace lumbra {

/// What a stream tells its delegate.
enum class StreamEvent : std::uint8_t {
    OpenCompleted = 1,
    HasBytesAvailable = 2,
    HasSpaceAvailable = 4,
    ErrorOccurred = 8,
    EndEncountered = 16,
};

class Stream;

/// Receives a stream's events. Not owned by the stream.
class StreamDelegate {
public:
    /// One event of `stream`, on the main thread. The delegate may close and destroy the stream inside this
    /// call.
    virtual void handleEvent(Stream& stream, StreamEvent event) = 0;

protected:
    ~StreamDelegate() = default;
};

/// One direction of a TCP connection. A pair is created on any thread; from the first call on, a stream
/// belongs to the main thread.
///
/// Events of a pair: both directions report OpenCompleted once connected; a connect that is refused, fails or
/// has not completed in 10 s is one ErrorOccurred for the pair; bytes that arrived before an end or an error
/// are offered before it is reported. Nothing is reported inside `open` or `scheduleOnMainQueue`.
class Stream {
public:
    virtual ~Stream() = default;

    /// Directs events to `delegate`; null ends them.
    virtual void setDelegate(StreamDelegate* delegate) = 0;
    /// Starts connecting without blocking. The first of the pair's two calls starts it for both.
    virtual void open() = 0;
    /// Has events delivered on the main thread.
    virtual void scheduleOnMainQueue() = 0;
    /// Ends the delivery of events.
    virtual void removeFromMainQueue() = 0;
    /// Ends this direction for good; the socket is released once both directions are closed or destroyed.
    virtual void close() = 0;
};

/// The reading half of a pair.
class InputStream : public Stream {
public:
    /// True while `read` would return without waiting for the network.
    virtual bool hasBytesAvailable() const = 0;
    /// Reads up to `buffer.size()` bytes without blocking: the count, 0 at the end, negative on an error.
    virtual std::ptrdiff_t read(std::span<std::uint8_t> buffer) = 0;
};

/// The writing half of a pair.
class OutputStream : public Stream {
public:
    /// Hands over what the network takes now, without blocking or queueing the rest: the count handed over,
    /// possibly less than given or 0, or -1 on an error.
    virtual std::ptrdiff_t write(std::span<const std::uint8_t> bytes) = 0;
};

/// The two directions of one connection; either may be absent where the pair could not be created.
struct StreamPair {
    std::unique_ptr<InputStream> input;
    std::unique_ptr<OutputStream> output;
};

/// Creates unopened stream pairs.
class StreamFactory {
public:
    virtual ~StreamFactory() = default;

    /// A pair bound to a host name or address text, taken as it stands, and a port. Any thread.
    virtual StreamPair createPair(const std::string& host, std::uint16_t port) = 0;
};

} // namespace lumbra

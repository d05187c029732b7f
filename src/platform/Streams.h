#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>

namespace lumbra {

/// The events that a stream reports to its delegate.
enum class StreamEvent : std::uint8_t {
    OpenCompleted = 1,
    HasBytesAvailable = 2,
    HasSpaceAvailable = 4,
    ErrorOccurred = 8,
    EndEncountered = 16,
};

class Stream;

/// Receives a stream's events. The stream does not own it.
class StreamDelegate {
public:
    /// Handles one event of `stream`, on the main thread. The delegate may close and destroy the stream
    /// inside this call.
    virtual void handleEvent(Stream& stream, StreamEvent event) = 0;

protected:
    ~StreamDelegate() = default;
};

/// One direction of a TCP connection. A pair may be created on any thread; from its first call on, a stream
/// belongs to the main thread.
///
/// Both directions report OpenCompleted once connected. A connect that is refused, fails or takes longer than
/// 10 s is one ErrorOccurred for the pair. Bytes that arrived before an end or an error are offered before it
/// is reported. Nothing is reported inside `open` or `scheduleOnMainQueue`.
class Stream {
public:
    virtual ~Stream() = default;

    /// Sends events to `delegate` from now on; null: to nobody.
    virtual void setDelegate(StreamDelegate* delegate) = 0;
    /// Starts to connect, without blocking. The first call on either stream starts it for the pair.
    virtual void open() = 0;
    /// Starts the delivery of events, on the main thread.
    virtual void scheduleOnMainQueue() = 0;
    /// Stops the delivery of events.
    virtual void removeFromMainQueue() = 0;
    /// Closes this direction for good. The socket is released once both directions are closed or destroyed.
    virtual void close() = 0;
};

/// The reading half of a pair.
class InputStream : public Stream {
public:
    /// True while `read` would return without waiting for the network.
    virtual bool hasBytesAvailable() const = 0;
    /// Reads up to `buffer.size()` bytes without blocking. Returns the number of bytes, 0 at the end, or a
    /// negative number on an error.
    virtual std::ptrdiff_t read(std::span<std::uint8_t> buffer) = 0;
};

/// The writing half of a pair.
class OutputStream : public Stream {
public:
    /// Writes what the network takes now, without blocking. Returns the number of bytes taken, which may be
    /// less than given or 0, or -1 on an error. The rest is not queued.
    virtual std::ptrdiff_t write(std::span<const std::uint8_t> bytes) = 0;
};

/// The two directions of one connection; no input and no output if the pair could not be created.
struct StreamPair {
    std::unique_ptr<InputStream> input;
    std::unique_ptr<OutputStream> output;

    /// Opens both for `delegate`. Main thread.
    void open(StreamDelegate& delegate) const {
        for (Stream* stream : {static_cast<Stream*>(input.get()), static_cast<Stream*>(output.get())}) {
            stream->setDelegate(&delegate);
            stream->open();
            stream->scheduleOnMainQueue();
        }
    }
    /// Closes both; nothing more is reported. Main thread.
    void close() const {
        for (Stream* stream : {static_cast<Stream*>(output.get()), static_cast<Stream*>(input.get())}) {
            stream->removeFromMainQueue();
            stream->close();
            stream->setDelegate(nullptr);
        }
    }
};

/// Creates unopened stream pairs.
class StreamFactory {
public:
    virtual ~StreamFactory() = default;

    /// Creates a pair for `port` of `host`, a host name or address text that is not checked here. A host that
    /// cannot be reached is an error event of the pair. Any thread.
    virtual StreamPair createPair(const std::string& host, std::uint16_t port) = 0;
};

} // namespace lumbra

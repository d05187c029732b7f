#pragma once

#include "platform/MainQueue.h"
#include "platform/Streams.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>

namespace lumbra {

/// The state that the two streams of a pair share. It reports the events to their delegates, in the order and
/// at the times that Stream promises; a derived class moves the bytes. Each stream owns a reference.
///
/// It may be created on any thread. From the first call of a stream on it belongs to the main thread.
class PairState : public std::enable_shared_from_this<PairState> {
public:
    enum class Direction : std::uint8_t { Input, Output };

    /// `queue` outlives the pair.
    explicit PairState(MainQueue& queue) : queue_(queue) {}
    virtual ~PairState() = default;
    PairState(const PairState&) = delete;
    PairState& operator=(const PairState&) = delete;

    /// The streams. Called once.
    StreamPair createStreams();

    // What the streams do.
    void attach(Direction direction, Stream& stream) { half(direction).stream = &stream; }
    void setDelegate(Direction direction, StreamDelegate* delegate);
    void setScheduled(Direction direction, bool scheduled);
    void open();
    void close(Direction direction);
    bool hasBytesAvailable() const { return unread() > 0; }
    std::ptrdiff_t read(std::span<std::uint8_t> buffer);
    virtual std::ptrdiff_t write(std::span<const std::uint8_t> bytes) = 0;

protected:
    enum class State : std::uint8_t { Unopened, Connecting, Connected, Failed, Released };

    /// Starts to connect. Called once, in the state Connecting.
    virtual void start() = 0;
    /// How many bytes have arrived and are not read.
    virtual std::size_t unread() const = 0;
    /// Moves unread bytes to `buffer`, as many as it holds, and returns their number.
    virtual std::size_t take(std::span<std::uint8_t> buffer) = 0;
    /// Drops the unread bytes: the input is closed.
    virtual void inputClosed() = 0;
    /// Both directions of a pair that had been opened are closed. Called once, before the state is Released.
    virtual void release() = 0;

    State state() const { return state_; }
    bool isClosed(Direction direction) const {
        return direction == Direction::Input ? input_.closed : output_.closed;
    }
    MainQueue& queue() { return queue_; }

    /// Both directions are open, which `deliver` will report.
    void connected() { state_ = State::Connected; }
    /// Bytes have arrived, which `deliver` will report until they are read.
    void bytesArrived() { offerPending_ = true; }
    /// The network takes bytes again, which `deliver` will report.
    void spaceFound() { spacePending_ = true; }
    /// The connect has failed, or the connection is over. `deliver` reports it behind the unread bytes.
    void over(StreamEvent lastEvent);
    /// The argument of `over`.
    const std::optional<StreamEvent>& lastEvent() const { return lastEvent_; }

    /// Reports what is due to those who listen. They may destroy both streams meanwhile.
    void deliver();
    /// Does so in a later turn.
    void postDelivery();

private:
    struct Half {
        Stream* stream = nullptr;
        StreamDelegate* delegate = nullptr;
        bool scheduled = false;
        bool closed = false;
        bool openReported = false;
        bool isListening() const { return !closed && scheduled && delegate; }
    };

    Half& half(Direction direction) { return direction == Direction::Input ? input_ : output_; }
    bool mustOffer() const { return offerPending_ && unread() > 0; }

    void deliverOpen(Half& half);
    void deliverBytes();
    void deliverSpace();
    void deliverLastEvent();
    static void report(const Half& half, StreamEvent event);

    MainQueue& queue_;
    State state_ = State::Unopened;
    Half input_;
    Half output_;
    bool offerPending_ = false; ///< unread bytes, if any, must be reported to the delegate
    bool spacePending_ = false;
    std::optional<StreamEvent> lastEvent_; ///< the end or error; nothing follows it
    bool lastEventReported_ = false;
    bool deliveryPosted_ = false;
    bool delivering_ = false;
};

} // namespace lumbra

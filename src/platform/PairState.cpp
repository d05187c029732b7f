#include "platform/PairState.h"

#include <utility>

namespace lumbra {

namespace {

/// The common part of both directions.
template <typename Interface, PairState::Direction DIRECTION>
class PairStream : public Interface {
public:
    explicit PairStream(std::shared_ptr<PairState> pair) : pair_(std::move(pair)) {
        pair_->attach(DIRECTION, *this);
    }
    ~PairStream() override { pair_->close(DIRECTION); }

    void setDelegate(StreamDelegate* delegate) override { pair_->setDelegate(DIRECTION, delegate); }
    void open() override { pair_->open(); }
    void scheduleOnMainQueue() override { pair_->setScheduled(DIRECTION, true); }
    void removeFromMainQueue() override { pair_->setScheduled(DIRECTION, false); }
    void close() override { pair_->close(DIRECTION); }

protected:
    const std::shared_ptr<PairState> pair_;
};

class PairInput final : public PairStream<InputStream, PairState::Direction::Input> {
public:
    using PairStream::PairStream;

    bool hasBytesAvailable() const override { return pair_->hasBytesAvailable(); }
    std::ptrdiff_t read(std::span<std::uint8_t> buffer) override { return pair_->read(buffer); }
};

class PairOutput final : public PairStream<OutputStream, PairState::Direction::Output> {
public:
    using PairStream::PairStream;

    std::ptrdiff_t write(std::span<const std::uint8_t> bytes) override { return pair_->write(bytes); }
};

} // namespace

StreamPair PairState::createStreams() {
    return {std::make_unique<PairInput>(shared_from_this()),
            std::make_unique<PairOutput>(shared_from_this())};
}

void PairState::setDelegate(Direction direction, StreamDelegate* delegate) {
    half(direction).delegate = delegate;
    if (delegate)
        postDelivery();
}

void PairState::setScheduled(Direction direction, bool scheduled) {
    half(direction).scheduled = scheduled;
    if (scheduled)
        postDelivery();
}

void PairState::open() {
    if (state_ != State::Unopened)
        return;
    state_ = State::Connecting;
    start();
}

void PairState::close(Direction direction) {
    auto& closing = half(direction);
    closing.closed = true;
    closing.delegate = nullptr;
    if (direction == Direction::Input)
        inputClosed();
    if (!input_.closed || !output_.closed || state_ == State::Released)
        return;
    if (state_ != State::Unopened)
        release();
    state_ = State::Released;
}

std::ptrdiff_t PairState::read(std::span<std::uint8_t> buffer) {
    if (unread() == 0)
        return lastEvent_ == StreamEvent::EndEncountered && !input_.closed ? 0 : -1;
    const auto count = take(buffer);
    if (unread() > 0 && count > 0) {
        offerPending_ = true;
        if (!delivering_)
            postDelivery();
    }
    return static_cast<std::ptrdiff_t>(count);
}

void PairState::over(StreamEvent lastEvent) {
    if (state_ == State::Connecting)
        state_ = State::Failed;
    lastEvent_ = lastEvent;
    offerPending_ = true;
}

void PairState::postDelivery() {
    if (state_ == State::Unopened || state_ == State::Released || std::exchange(deliveryPosted_, true))
        return;
    queue_.post([weak = weak_from_this()] {
        if (const auto self = weak.lock()) {
            self->deliveryPosted_ = false;
            self->deliver();
        }
    });
}

void PairState::deliver() {
    // A delegate may destroy both streams, and thereby this object, inside any report.
    const auto self = shared_from_this();
    const bool outer = std::exchange(delivering_, true);
    if (state_ == State::Connected) {
        deliverOpen(input_);
        deliverOpen(output_);
        deliverBytes();
        deliverSpace();
    }
    deliverLastEvent();
    delivering_ = outer;
}

void PairState::deliverOpen(Half& half) {
    if (half.isListening() && !std::exchange(half.openReported, true))
        report(half, StreamEvent::OpenCompleted);
}

void PairState::deliverBytes() {
    if (!mustOffer() || !input_.isListening())
        return;
    offerPending_ = false;
    report(input_, StreamEvent::HasBytesAvailable);
    if (mustOffer()) // the rest is reported in another turn
        postDelivery();
}

void PairState::deliverSpace() {
    if (spacePending_ && !lastEvent_ && output_.isListening()) {
        spacePending_ = false;
        report(output_, StreamEvent::HasSpaceAvailable);
    }
}

void PairState::deliverLastEvent() {
    if (!lastEvent_ || lastEventReported_ || mustOffer())
        return;
    const auto& listener = input_.closed ? output_ : input_;
    if (!listener.isListening())
        return;
    lastEventReported_ = true;
    report(listener, *lastEvent_);
}

void PairState::report(const Half& half, StreamEvent event) {
    half.delegate->handleEvent(*half.stream, event);
}

} // namespace lumbra

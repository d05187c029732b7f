#include "system/TracingStreamFactory.h"

#include <algorithm>
#include <memory>
#include <span>
#include <utility>

namespace lumbra {

namespace {

using Kind = TraceEntry::Kind;

std::string textOf(std::span<const std::uint8_t> bytes) {
    return {bytes.begin(), bytes.end()};
}

/// What is known of one link. Its two streams own it together.
class TracedLink {
public:
    TracedLink(TraceFile& trace, int number) : trace_(trace), number_(number) {}
    TracedLink(const TracedLink&) = delete;
    TracedLink& operator=(const TracedLink&) = delete;
    ~TracedLink() { add(Kind::Closed); }

    void attempt(const std::string& host, std::uint16_t port) {
        trace_.add({.kind = Kind::Attempt, .link = number_, .text = host, .port = port});
    }
    void directionOpened() {
        if (++openDirections_ == 2)
            add(Kind::Opened);
    }
    /// The link is over. Only the first event or call that says so is traced.
    void over(Kind kind) {
        if (!std::exchange(isOver_, true))
            add(kind);
    }
    void received(std::span<const std::uint8_t> bytes) {
        trace_.add({.kind = Kind::Received, .link = number_, .text = textOf(bytes)});
    }
    void written(std::span<const std::uint8_t> bytes, std::ptrdiff_t result) {
        const auto taken = static_cast<std::size_t>(std::max<std::ptrdiff_t>(result, 0));
        trace_.add({.kind = Kind::Sent,
                    .link = number_,
                    .text = textOf(bytes.first(taken)),
                    .notSent = textOf(bytes.subspan(taken)),
                    .failed = result < 0});
    }

private:
    void add(Kind kind) { trace_.add({.kind = kind, .link = number_}); }

    TraceFile& trace_;
    const int number_;
    int openDirections_ = 0;
    bool isOver_ = false;
};

/// The common part of both directions. Stands between the stream and its delegate, because events name the
/// stream that they are of.
template <typename Interface>
class TracedStream : public Interface, private StreamDelegate {
public:
    TracedStream(std::unique_ptr<Interface> stream, std::shared_ptr<TracedLink> link)
        : link_(std::move(link)), stream_(std::move(stream)) {}
    TracedStream(const TracedStream&) = delete;
    TracedStream& operator=(const TracedStream&) = delete;

    void setDelegate(StreamDelegate* delegate) override {
        delegate_ = delegate;
        stream_->setDelegate(delegate ? this : nullptr);
    }
    void open() override { stream_->open(); }
    void scheduleOnMainQueue() override { stream_->scheduleOnMainQueue(); }
    void removeFromMainQueue() override { stream_->removeFromMainQueue(); }
    void close() override { stream_->close(); }

protected:
    Interface& stream() { return *stream_; }
    const Interface& stream() const { return *stream_; }
    TracedLink& link() { return *link_; }

private:
    void handleEvent(Stream&, StreamEvent event) override {
        if (event == StreamEvent::OpenCompleted)
            link_->directionOpened();
        else if (event == StreamEvent::ErrorOccurred)
            link_->over(Kind::Error);
        else if (event == StreamEvent::EndEncountered)
            link_->over(Kind::End);
        delegate_->handleEvent(*this, event); // may destroy this stream
    }

    const std::shared_ptr<TracedLink> link_; // outlives the stream
    std::unique_ptr<Interface> stream_;
    StreamDelegate* delegate_ = nullptr;
};

class TracedInput final : public TracedStream<InputStream> {
public:
    using TracedStream::TracedStream;

    bool hasBytesAvailable() const override { return stream().hasBytesAvailable(); }
    std::ptrdiff_t read(std::span<std::uint8_t> buffer) override {
        const auto count = stream().read(buffer);
        if (count > 0)
            link().received(buffer.first(static_cast<std::size_t>(count)));
        else if (!buffer.empty())
            link().over(count == 0 ? Kind::End : Kind::Error);
        return count;
    }
};

class TracedOutput final : public TracedStream<OutputStream> {
public:
    using TracedStream::TracedStream;

    std::ptrdiff_t write(std::span<const std::uint8_t> bytes) override {
        const auto result = stream().write(bytes);
        link().written(bytes, result);
        return result;
    }
};

} // namespace

StreamPair TracingStreamFactory::createPair(const std::string& host, std::uint16_t port) {
    const auto link = std::make_shared<TracedLink>(trace_, ++links_);
    link->attempt(host, port);
    auto pair = streams_.createPair(host, port);
    if (!pair.input)
        return pair;
    return {std::make_unique<TracedInput>(std::move(pair.input), link),
            std::make_unique<TracedOutput>(std::move(pair.output), link)};
}

} // namespace lumbra

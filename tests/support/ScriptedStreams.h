#pragma once

#include "platform/Streams.h"

#include <algorithm>
#include <deque>
#include <span>
#include <vector>

namespace lumbra {

/// One pair of streams under a test's control. It outlives its streams, so that what became of them can be looked at.
class ScriptedPair {
public:
    ScriptedPair(std::string toHost, std::uint16_t toPort) : host(std::move(toHost)), port(toPort) {}

    const std::string host;
    const std::uint16_t port;

    /// The bytes that wait to be read.
    std::string incoming;
    /// What the next reads return instead of bytes: 0 for the end, negative for an error.
    std::deque<std::ptrdiff_t> readResults;
    /// The bytes handed to each `write`, whatever it returned.
    std::vector<std::string> writes;
    /// What the next writes return: at most that many bytes are taken, -1 is an error. All bytes are taken without.
    std::deque<std::ptrdiff_t> writeResults;
    /// All bytes that the writes took.
    std::string taken;

    /// Reports `event` on a direction; false, and nothing happens, where that direction is not open, not scheduled or
    /// has no delegate.
    bool fireInput(StreamEvent event) { return fire(input_, event); }
    bool fireOutput(StreamEvent event) { return fire(output_, event); }

    /// Connects: OpenCompleted on the input, then on the output.
    void connect() {
        fireInput(StreamEvent::OpenCompleted);
        fireOutput(StreamEvent::OpenCompleted);
    }
    /// Lets `bytes` arrive and reports them in one event.
    bool feed(std::string_view bytes) {
        incoming += bytes;
        return fireInput(StreamEvent::HasBytesAvailable);
    }
    /// How many of the two streams exist.
    int live() const { return (input_.stream ? 1 : 0) + (output_.stream ? 1 : 0); }

    /// The two streams of `pair`.
    static StreamPair streams(const std::shared_ptr<ScriptedPair>& pair) {
        return {std::make_unique<Input>(pair, pair->input_), std::make_unique<Output>(pair, pair->output_)};
    }

private:
    struct Direction {
        Stream* stream = nullptr;
        StreamDelegate* delegate = nullptr;
        bool scheduled = false;
        bool open = false;
    };

    template <typename Interface>
    class ScriptedStream : public Interface {
    public:
        ScriptedStream(std::shared_ptr<ScriptedPair> pair, Direction& direction)
            : pair_(std::move(pair)), direction_(direction) {
            direction_.stream = this;
        }
        ~ScriptedStream() override { direction_ = {}; }
        void setDelegate(StreamDelegate* delegate) override { direction_.delegate = delegate; }
        void open() override { direction_.open = true; }
        void scheduleOnMainQueue() override { direction_.scheduled = true; }
        void removeFromMainQueue() override { direction_.scheduled = false; }
        void close() override { direction_.open = false; }

    protected:
        // Keeps the pair alive, whose member the direction is.
        const std::shared_ptr<ScriptedPair> pair_;
        Direction& direction_;
    };

    class Input final : public ScriptedStream<InputStream> {
    public:
        using ScriptedStream::ScriptedStream;

        bool hasBytesAvailable() const override {
            return direction_.open && (!pair_->readResults.empty() || !pair_->incoming.empty());
        }
        std::ptrdiff_t read(std::span<std::uint8_t> buffer) override {
            if (const auto result = next(pair_->readResults, 1); result <= 0)
                return result;
            const auto count = pair_->incoming.copy(reinterpret_cast<char*>(buffer.data()), buffer.size());
            pair_->incoming.erase(0, count);
            return static_cast<std::ptrdiff_t>(count);
        }
    };

    class Output final : public ScriptedStream<OutputStream> {
    public:
        using ScriptedStream::ScriptedStream;

        std::ptrdiff_t write(std::span<const std::uint8_t> bytes) override {
            pair_->writes.emplace_back(bytes.begin(), bytes.end());
            const auto all = static_cast<std::ptrdiff_t>(bytes.size());
            const auto count = std::min(all, next(pair_->writeResults, all));
            pair_->taken.append(pair_->writes.back(), 0,
                                static_cast<std::size_t>(std::max(count, std::ptrdiff_t{0})));
            return count;
        }
    };

    static std::ptrdiff_t next(std::deque<std::ptrdiff_t>& results, std::ptrdiff_t otherwise) {
        if (results.empty())
            return otherwise;
        otherwise = results.front();
        results.pop_front();
        return otherwise;
    }
    static bool fire(const Direction& direction, StreamEvent event) {
        if (!direction.open || !direction.scheduled || !direction.delegate)
            return false;
        direction.delegate->handleEvent(*direction.stream, event);
        return true;
    }

    Direction input_;
    Direction output_;
};

/// Creates scripted pairs and remembers them all.
class ScriptedStreamFactory final : public StreamFactory {
public:
    /// The next pairs can't be created.
    bool fails = false;

    StreamPair createPair(const std::string& host, std::uint16_t port) override {
        auto streams = ScriptedPair::streams(pairs_.emplace_back(std::make_shared<ScriptedPair>(host, port)));
        return fails ? StreamPair() : std::move(streams);
    }

    /// How many pairs were created so far.
    std::size_t created() const { return pairs_.size(); }
    /// The pair created at `position`, counted from 0.
    ScriptedPair& pair(std::size_t position) { return *pairs_.at(position); }
    /// The pair created last.
    ScriptedPair& last() { return pair(created() - 1); }
    /// How many streams of all pairs exist.
    int liveStreams() const {
        int count = 0;
        for (const auto& pair : pairs_)
            count += pair->live();
        return count;
    }

private:
    std::vector<std::shared_ptr<ScriptedPair>> pairs_;
};

} // namespace lumbra

#pragma once

#include "platform/PairState.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

namespace lumbra {

class SharedConnection;

/// One application's share of a connection to the unit. To the application it is a pair of streams of its own.
/// It touches the connection from its `open` on. The two may end in any order.
class Tap final : public PairState {
public:
    /// The most bytes that wait to be read. A pair that nobody reads must not delay the others: with more it
    /// ends, as a unit ends a connection that is not read.
    static constexpr std::size_t UNREAD_LIMIT = 65536;

    /// Returns the connection to enter; null if there is none any more. Called on the main thread.
    using Find = std::function<std::shared_ptr<SharedConnection>()>;

    /// `queue` outlives the tap. Any thread.
    Tap(MainQueue& queue, Find find) : PairState(queue), find_(std::move(find)) {}

    std::ptrdiff_t write(std::span<const std::uint8_t> bytes) override;

    // What the connection does. Nothing is reported before `deliver`.

    bool isOpening() const { return state() == State::Connecting; }
    bool hasEnded() const { return lastEvent().has_value(); }
    /// The connection is open. `begun` reports have begun so far, which are not for this tap.
    void opened(std::uint64_t begun);
    /// The report that began as the `begun`th has arrived; its bytes, or a part of them.
    void hear(std::uint64_t begun, std::string_view bytes);
    /// The network takes commands again.
    void offerSpace();
    /// The connect has failed, or the connection is over.
    void end(StreamEvent lastEvent);
    using PairState::deliver;
    using PairState::postDelivery;

private:
    void start() override;
    std::size_t unread() const override { return received_.size() - read_; }
    std::size_t take(std::span<std::uint8_t> buffer) override;
    void inputClosed() override;
    void release() override;

    const Find find_;
    std::weak_ptr<SharedConnection> connection_;
    std::uint64_t missed_ = 0; ///< how many reports had begun before it opened
    std::vector<std::uint8_t> received_;
    std::size_t read_ = 0; ///< how many of these bytes are read
    bool wantsSpace_ = false;
};

} // namespace lumbra

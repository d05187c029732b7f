#include "link/Tap.h"

#include "link/SharedConnection.h"

#include <algorithm>
#include <utility>

namespace lumbra {

void Tap::start() {
    const auto connection = find_();
    if (!connection) {
        end(StreamEvent::ErrorOccurred);
        postDelivery();
        return;
    }
    connection_ = connection;
    connection->enter(std::static_pointer_cast<Tap>(shared_from_this()));
}

void Tap::opened(std::uint64_t begun) {
    missed_ = begun;
    connected();
}

void Tap::hear(std::uint64_t begun, std::string_view bytes) {
    if (state() != State::Connected || begun <= missed_ || isClosed(Direction::Input) || hasEnded())
        return;
    if (unread() + bytes.size() > UNREAD_LIMIT) {
        end(StreamEvent::EndEncountered);
        return;
    }
    received_.insert(received_.end(), bytes.begin(), bytes.end());
    bytesArrived();
}

std::size_t Tap::take(std::span<std::uint8_t> buffer) {
    const auto count = std::min(buffer.size(), unread());
    std::copy_n(received_.data() + read_, count, buffer.data());
    read_ += count;
    if (2 * read_ >= received_.size()) {
        received_.erase(received_.begin(), received_.begin() + static_cast<std::ptrdiff_t>(read_));
        read_ = 0;
    }
    return count;
}

void Tap::inputClosed() {
    received_ = {};
    read_ = 0;
}

std::ptrdiff_t Tap::write(std::span<const std::uint8_t> bytes) {
    if (isClosed(Direction::Output) || hasEnded())
        return -1;
    const auto connection = connection_.lock();
    if (state() != State::Connected || bytes.empty() || !connection)
        return 0;
    const auto count = connection->send(*this, bytes);
    wantsSpace_ |= count == 0;
    return count;
}

void Tap::offerSpace() {
    if (std::exchange(wantsSpace_, false))
        spaceFound();
}

void Tap::end(StreamEvent lastEvent) {
    if (!hasEnded())
        over(lastEvent);
}

void Tap::release() {
    if (const auto connection = connection_.lock())
        connection->leave(*this);
}

} // namespace lumbra

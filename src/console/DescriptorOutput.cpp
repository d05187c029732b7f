#include "console/DescriptorOutput.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <climits>
#include <poll.h>
#include <unistd.h>
#include <utility>

namespace lumbra::console {

namespace {

// How often a reader that is behind is tried again.
constexpr std::chrono::milliseconds OFFER_INTERVAL{5};

} // namespace

DescriptorOutput::DescriptorOutput(int descriptor, int interrupt, MainQueue& queue,
                                   std::function<void(bool)> around)
    : descriptor_(descriptor), interrupt_(interrupt), queue_(queue), around_(std::move(around)) {}

void DescriptorOutput::write(std::string_view lines) {
    if (closed_)
        return;
    pending_ += lines;
    if (!behind_ && pending_.size() >= FLUSH_SIZE)
        flush();
    else if (!scheduled_)
        scheduleFlush(false);
}

void DescriptorOutput::scheduleFlush(bool later) {
    scheduled_ = true;
    auto work = life_.guard([this] {
        scheduled_ = false;
        flush();
    });
    if (later)
        queue_.postAfter(OFFER_INTERVAL, std::move(work));
    else
        queue_.post(std::move(work));
}

void DescriptorOutput::flush() {
    writePending(false);
    const bool wasBehind = std::exchange(behind_, !pending_.empty());
    if (behind_ && !scheduled_)
        scheduleFlush(true);
    if (wasBehind && !behind_)
        announceCaughtUp();
}

void DescriptorOutput::finish() {
    writePending(true);
}

bool DescriptorOutput::isWritable(int milliseconds) {
    pollfd descriptors[] = {{descriptor_, POLLOUT, 0}, {interrupt_, POLLIN, 0}};
    while (::poll(descriptors, 2, milliseconds) < 0 && errno == EINTR) {
    }
    return descriptors[0].revents != 0;
}

void DescriptorOutput::writePending(bool waits) {
    if (pending_.empty())
        return;
    if (around_)
        around_(true);
    while (!closed_ && written_ < pending_.size() && isWritable(waits ? -1 : 0)) {
        // A pipe that polls as writable takes this much without blocking.
        const auto count = std::min<std::size_t>(pending_.size() - written_, PIPE_BUF);
        const auto result = ::write(descriptor_, pending_.data() + written_, count);
        if (result >= 0)
            written_ += static_cast<std::size_t>(result);
        else if (errno != EINTR && errno != EAGAIN)
            closed_ = true;
    }
    if (closed_ || written_ == pending_.size()) {
        pending_.clear();
        written_ = 0;
    } else if (written_ > pending_.size() / 2) {
        pending_.erase(0, std::exchange(written_, 0));
    }
    if (around_)
        around_(false);
}

} // namespace lumbra::console

#include "console/DescriptorOutput.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <climits>
#include <fcntl.h>
#include <poll.h>
#include <string>
#include <termios.h>
#include <unistd.h>
#include <utility>

namespace lumbra::console {

namespace {

// How often a reader that is behind is tried again.
constexpr std::chrono::milliseconds OFFER_INTERVAL{5};

/// A terminal that polls as writable may still block a write for ever: once its user has stopped it, or where it
/// takes less than is written. Others share its description, so that one can't be set to non-blocking. This is
/// another one, or -1 if `descriptor` is no terminal or there is no way to open it.
int openUnblocked(int descriptor) {
    constexpr int FLAGS = O_WRONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;
    if (::isatty(descriptor) == 0)
        return -1;
    // A process that has changed its user may not open the terminal by its name, but it can open its own.
    const bool isOwn = ::tcgetsid(descriptor) == ::getsid(0);
    const int own = isOwn ? ::open("/dev/tty", FLAGS) : -1;
    return own != -1 ? own : ::open(("/proc/self/fd/" + std::to_string(descriptor)).c_str(), FLAGS);
}

} // namespace

DescriptorOutput::DescriptorOutput(int descriptor, int interrupt, MainQueue& queue,
                                   std::function<void(bool)> around)
    : descriptor_(openUnblocked(descriptor)),
      owned_(descriptor_ != -1),
      interrupt_(interrupt),
      queue_(queue),
      around_(std::move(around)) {
    if (!owned_)
        descriptor_ = descriptor;
}

DescriptorOutput::~DescriptorOutput() {
    if (owned_)
        ::close(descriptor_);
}

void DescriptorOutput::write(std::string_view lines) {
    if (closed_)
        return;
    lines_ += lines;
    if (!behind_ && lines_.size() >= FLUSH_SIZE)
        flush();
    else if (!scheduled_)
        scheduleFlush(false);
}

void DescriptorOutput::print(std::string_view text) {
    if (closed_)
        return;
    pending_ += text;
    if (!scheduled_)
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
    writeAll(false);
    const bool wasBehind = std::exchange(behind_, !pending_.empty());
    if (behind_ && !scheduled_)
        scheduleFlush(true);
    if (wasBehind && !behind_)
        announceCaughtUp();
}

void DescriptorOutput::finish() {
    writeAll(true);
}

void DescriptorOutput::writeAll(bool waits) {
    writePending(waits);
    if (!pending_.empty() || lines_.empty())
        return;
    const auto lines = std::exchange(lines_, {});
    if (around_)
        around_(true);
    pending_ += lines;
    if (around_)
        around_(false);
    writePending(waits);
}

bool DescriptorOutput::isWritable(bool waits) const {
    pollfd descriptors[] = {{descriptor_, POLLOUT, 0}, {interrupt_, POLLIN, 0}};
    while (::poll(descriptors, 2, waits ? -1 : 0) < 0 && errno == EINTR) {
    }
    return descriptors[0].revents != 0;
}

void DescriptorOutput::writePending(bool waits) {
    while (!closed_ && written_ < pending_.size() && isWritable(waits)) {
        // A pipe that polls as writable takes this much without blocking.
        const auto count = std::min<std::size_t>(pending_.size() - written_, PIPE_BUF);
        const auto result = ::write(descriptor_, pending_.data() + written_, count);
        if (result > 0) {
            written_ += static_cast<std::size_t>(result);
        } else if (result == 0 || errno == EAGAIN) {
            // A terminal has room for one byte, and a line end needs two.
            pollfd interrupt{interrupt_, POLLIN, 0};
            if (!waits || ::poll(&interrupt, 1, static_cast<int>(OFFER_INTERVAL.count())) > 0)
                break;
        } else if (errno != EINTR) {
            closed_ = true;
        }
    }
    if (closed_ || written_ == pending_.size()) {
        pending_.clear();
        written_ = 0;
        if (closed_)
            lines_.clear();
    } else if (written_ > pending_.size() / 2) {
        pending_.erase(0, std::exchange(written_, 0));
    }
}

} // namespace lumbra::console

#include "system/QtMainQueue.h"

#include <QThread>

#include <algorithm>
#include <cassert>
#include <cerrno>
#include <sys/eventfd.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace lumbra {

namespace {

// Longer delays are split into pieces of this length: a QTimer counts milliseconds in 32 bits.
constexpr std::chrono::hours LONGEST_TIMER{24};
// Delays are clamped to this, far below the limit of the clock.
constexpr std::chrono::hours LONGEST_DELAY{24 * 365 * 10};

int createWakeDescriptor() {
    const int descriptor = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    if (descriptor == -1)
        throw std::system_error(errno, std::generic_category(), "can't create the main queue");
    return descriptor;
}

} // namespace

QtMainQueue::QtMainQueue()
    : wakeDescriptor_(createWakeDescriptor()), wakeNotifier_(wakeDescriptor_, QSocketNotifier::Read) {
    QObject::connect(&wakeNotifier_, &QSocketNotifier::activated, &wakeNotifier_, [this] { runPosted(); });
    timer_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { runDue(); });
}

QtMainQueue::~QtMainQueue() {
    wakeNotifier_.setEnabled(false);
    ::close(wakeDescriptor_);
}

void QtMainQueue::post(Work work) {
    {
        const std::lock_guard lock(mutex_);
        posted_.push_back(std::move(work));
        if (std::exchange(wakeRequested_, true))
            return;
    }
    // This can only fail if the counter is full, and then the loop is awake already.
    [[maybe_unused]] const int result = eventfd_write(wakeDescriptor_, 1);
}

void QtMainQueue::runPosted() {
    eventfd_t counter = 0;
    eventfd_read(wakeDescriptor_, &counter);

    std::unique_lock lock(mutex_);
    wakeRequested_ = false;
    // Taken one at a time, so that a nested event loop continues with the next piece in order.
    for (auto left = posted_.size(); left > 0 && !posted_.empty(); --left) {
        auto work = std::move(posted_.front());
        posted_.pop_front();
        lock.unlock();
        work();
        work = nullptr;
        lock.lock();
    }
}

void QtMainQueue::drop() {
    std::deque<Work> posted;
    {
        const std::lock_guard lock(mutex_);
        posted.swap(posted_);
    }
    std::exchange(delayed_, {}).clear();
}

void QtMainQueue::postAfter(std::chrono::nanoseconds delay, Work work) {
    assert(QThread::currentThread() == timer_.thread());
    delay = std::clamp<std::chrono::nanoseconds>(delay, std::chrono::nanoseconds::zero(), LONGEST_DELAY);
    delayed_.emplace(Clock::now() + delay, std::move(work));
    armTimer();
}

void QtMainQueue::runDue() {
    const auto now = Clock::now(); // work added meanwhile waits for the next turn
    while (!delayed_.empty() && delayed_.begin()->first <= now) {
        const auto next = delayed_.extract(delayed_.begin());
        next.mapped()();
    }
    armTimer();
}

void QtMainQueue::armTimer() {
    if (delayed_.empty()) {
        timer_.stop();
        return;
    }
    const auto wait = std::chrono::ceil<std::chrono::milliseconds>(delayed_.begin()->first - Clock::now());
    timer_.start(
        std::clamp<std::chrono::milliseconds>(wait, std::chrono::milliseconds::zero(), LONGEST_TIMER));
}

} // namespace lumbra

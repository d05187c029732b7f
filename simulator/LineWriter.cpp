#include "simulator/LineWriter.h"

#include <cerrno>
#include <condition_variable>
#include <mutex>
#include <poll.h>
#include <string_view>
#include <thread>
#include <unistd.h>

namespace lumbra::sim {

namespace {

/// Gives up once the reader is gone.
void writeAll(int descriptor, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t count = ::write(descriptor, bytes.data(), bytes.size());
        if (count >= 0) {
            bytes.remove_prefix(static_cast<std::size_t>(count));
        } else if (errno == EAGAIN) {
            // The parent process may have made the descriptor non-blocking.
            pollfd writable{descriptor, POLLOUT, 0};
            ::poll(&writable, 1, -1);
        } else if (errno != EINTR) {
            return;
        }
    }
}

} // namespace

/// The state shared by the caller and the thread. The thread may outlive the writer.
struct LineWriter::Shared {
    explicit Shared(int output) : descriptor(output) {}

    const int descriptor;
    std::mutex mutex;
    std::condition_variable changed;
    std::string waiting;
    std::size_t dropped = 0; ///< lines dropped after those that wait
    bool writing = false;
    bool ending = false;
};

LineWriter::LineWriter(int descriptor) : shared_(std::make_shared<Shared>(descriptor)) {
    std::thread(run, shared_).detach();
}

LineWriter::~LineWriter() {
    const std::lock_guard lock(shared_->mutex);
    shared_->ending = true;
    shared_->changed.notify_all();
}

void LineWriter::write(const std::string& line) {
    const std::lock_guard lock(shared_->mutex);
    // After a dropped line nothing is queued until the thread has reported it, so that the report is in the
    // right place.
    if (shared_->dropped > 0 || shared_->waiting.size() + line.size() >= MOST_WAITING) {
        ++shared_->dropped;
        return;
    }
    shared_->waiting += line;
    shared_->waiting += '\n';
    shared_->changed.notify_all();
}

bool LineWriter::flush(std::chrono::milliseconds patience) {
    std::unique_lock lock(shared_->mutex);
    return shared_->changed.wait_for(lock, patience,
                                     [this] { return shared_->waiting.empty() && !shared_->writing; });
}

void LineWriter::run(const std::shared_ptr<Shared>& shared) {
    std::unique_lock lock(shared->mutex);
    while (true) {
        shared->changed.wait(lock, [&] { return shared->ending || !shared->waiting.empty(); });
        if (shared->waiting.empty())
            return;
        std::string batch;
        batch.swap(shared->waiting);
        if (shared->dropped > 0)
            batch += "! " + std::to_string(shared->dropped) + " lines left out: the reader is too slow\n";
        shared->dropped = 0;
        shared->writing = true;
        lock.unlock();
        writeAll(shared->descriptor, batch);
        lock.lock();
        shared->writing = false;
        shared->changed.notify_all();
    }
}

} // namespace lumbra::sim

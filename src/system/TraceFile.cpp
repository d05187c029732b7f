#include "system/TraceFile.h"

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace lumbra {

namespace {

constexpr mode_t OWNER_ONLY = S_IRUSR | S_IWUSR;
/// More than the last line takes, which names the limit.
constexpr std::int64_t LAST_LINE = 128;

std::string systemError() {
    return std::generic_category().message(errno);
}

bool beginsAsTrace(const std::string& path) {
    const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    std::array<char, TRACE_MARK.size()> begin{};
    const auto count = file == -1 ? -1 : ::read(file, begin.data(), begin.size());
    if (file != -1)
        ::close(file);
    return count == static_cast<ssize_t>(begin.size()) &&
           std::string_view(begin.data(), begin.size()) == TRACE_MARK;
}

} // namespace

TraceFile::TraceFile(MainQueue& queue, std::string path, Report report, int limit)
    : queue_(queue), path_(std::move(path)), report_(std::move(report)), limit_(std::int64_t{limit} << 20) {
    if (const auto problem = open(); !problem.empty()) {
        error_ = "The trace can't be written to " + path_ + ": " + problem + ".";
        isOver_ = true;
    }
}

std::string TraceFile::open() {
    // Neither an open nor a write of a pipe or a device may wait.
    file_ = ::open(path_.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC | O_NONBLOCK | O_NOCTTY, OWNER_ONLY);
    if (file_ == -1)
        return systemError();
    struct stat status {};
    if (::fstat(file_, &status) == -1 || !S_ISREG(status.st_mode))
        return {};
    if (::flock(file_, LOCK_EX | LOCK_NB) == -1 && errno == EWOULDBLOCK)
        return "another program writes its trace there";
    if (status.st_size > 0 && !beginsAsTrace(path_))
        return "it holds something other than a trace, and is left as it is";
    if (::fchmod(file_, OWNER_ONLY) == -1)
        return "others could read it, and its mode can't be changed (" + systemError() + ")";
    return ::ftruncate(file_, 0) == -1 ? systemError() : std::string();
}

TraceFile::~TraceFile() {
    write();
    if (file_ != -1)
        ::close(file_);
}

void TraceFile::start(const TraceStart& start) {
    append([&] { return formatTraceStart(start); });
}

void TraceFile::add(TraceEntry entry) {
    append([&] { return formatNow(std::move(entry)); });
}

std::string TraceFile::formatNow(TraceEntry entry) const {
    entry.time =
        std::chrono::duration_cast<std::chrono::microseconds>(std::chrono::steady_clock::now() - begin_);
    return formatTraceEntry(entry);
}

void TraceFile::append(const std::function<std::string()>& line) {
    const std::lock_guard lock(mutex_);
    if (isOver_)
        return;
    auto added = line(); // inside the lock, so that the times ascend
    if (added_ + static_cast<std::int64_t>(added.size()) > limit_ - LAST_LINE) {
        added = formatNow({.kind = TraceEntry::Kind::Full, .limit = limit_});
        isFull_ = isOver_ = true;
    }
    added_ += static_cast<std::int64_t>(added.size());
    pending_ += added;
    if (!std::exchange(posted_, true))
        queue_.post(life_.guard([this] { write(); }));
}

void TraceFile::write() {
    std::string lines;
    bool isFull = false;
    {
        const std::lock_guard lock(mutex_);
        lines.swap(pending_);
        posted_ = false;
        isFull = std::exchange(isFull_, false);
    }
    std::size_t written = 0;
    while (written < lines.size()) {
        const auto count = ::write(file_, lines.data() + written, lines.size() - written);
        if (count >= 0) {
            written += static_cast<std::size_t>(count);
        } else if (errno != EINTR) {
            const auto reason = systemError();
            // Half a line is left where that is refused; readers know of it.
            static_cast<void>(::ftruncate(file_, size_) == 0);
            {
                const std::lock_guard lock(mutex_);
                isOver_ = true;
                pending_.clear();
            }
            report_("The trace in " + path_ + " ends here: " + reason + ".");
            return;
        }
    }
    size_ += static_cast<std::int64_t>(lines.size());
    if (isFull)
        report_("The trace in " + path_ + " ends here: it has reached its limit of " +
                std::to_string(limit_ >> 20) + " MiB.");
}

} // namespace lumbra

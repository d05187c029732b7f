#pragma once

#include <functional>
#include <memory>

namespace lumbra {

/// A watch of one file descriptor. Destroying it ends the watch; this may happen inside its own callback.
/// Main thread only.
class DescriptorWatch {
public:
    virtual ~DescriptorWatch() = default;

    /// Pauses or resumes the watch. A new watch is enabled.
    virtual void setEnabled(bool enabled) = 0;
};

/// Reports when a file descriptor can be read without blocking, so that standard input needs no thread. Main
/// thread only.
class DescriptorWatcher {
public:
    virtual ~DescriptorWatcher() = default;

    /// Calls `readable` from the main loop, once a turn, while a read of `fd` would not block. This includes
    /// the end of a pipe and every regular file. The caller owns the descriptor and keeps it open while the
    /// watch lives.
    virtual std::unique_ptr<DescriptorWatch> watchReadable(int fd, std::function<void()> readable) = 0;
};

} // namespace lumbra

#pragma once

#include <functional>
#include <memory>

namespace lumbra {

/// The watch of one file descriptor; destroying it ends the watch, also from inside its own callback. Main
/// thread only.
class DescriptorWatch {
public:
    virtual ~DescriptorWatch() = default;

    /// Pauses the watch, or goes on with it; a new watch is enabled.
    virtual void setEnabled(bool enabled) = 0;
};

/// Tells when a file descriptor can be read without blocking, so that standard input needs no thread. Main
/// thread only.
class DescriptorWatcher {
public:
    virtual ~DescriptorWatcher() = default;

    /// Calls `readable` from the main loop, once a turn, for as long as a read of `fd` would not block. That
    /// is also so at the end of a pipe, for every regular file, and for a descriptor that is not open (the
    /// read then tells so). The descriptor stays the caller's, who keeps it open for as long as the watch
    /// lives.
    virtual std::unique_ptr<DescriptorWatch> watchReadable(int fd, std::function<void()> readable) = 0;
};

} // namespace lumbra

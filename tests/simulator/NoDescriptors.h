#pragma once

#include <sys/resource.h>
#include <unistd.h>

/// While it lives, the process gets no further descriptor.
class NoDescriptors {
public:
    NoDescriptors() {
        ::getrlimit(RLIMIT_NOFILE, &former_);
        const int next = ::dup(STDIN_FILENO);
        ::close(next);
        const rlimit none{static_cast<rlim_t>(next), former_.rlim_max};
        ::setrlimit(RLIMIT_NOFILE, &none);
    }
    NoDescriptors(const NoDescriptors&) = delete;
    NoDescriptors& operator=(const NoDescriptors&) = delete;
    ~NoDescriptors() { ::setrlimit(RLIMIT_NOFILE, &former_); }

private:
    rlimit former_{};
};

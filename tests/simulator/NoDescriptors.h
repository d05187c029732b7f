#pragma once

#include <sys/resource.h>
#include <unistd.h>

/// While it lives, the process gets no further descriptor.
struct NoDescriptors {
    NoDescriptors() {
        ::getrlimit(RLIMIT_NOFILE, &former);
        const int next = ::dup(STDIN_FILENO);
        ::close(next);
        const rlimit none{static_cast<rlim_t>(next), former.rlim_max};
        ::setrlimit(RLIMIT_NOFILE, &none);
    }
    NoDescriptors(const NoDescriptors&) = delete;
    ~NoDescriptors() { ::setrlimit(RLIMIT_NOFILE, &former); }

    rlimit former{};
};

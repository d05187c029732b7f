#pragma once

#include <sys/resource.h>

namespace lumbra {

/// While it lives, the process gets no more than `value` of a resource.
class Limited {
public:
    Limited(__rlimit_resource resource, rlim_t value) : resource_(resource) {
        ::getrlimit(resource, &former_);
        const rlimit less{value, former_.rlim_max};
        ::setrlimit(resource, &less);
    }
    Limited(const Limited&) = delete;
    ~Limited() { ::setrlimit(resource_, &former_); }

private:
    __rlimit_resource resource_;
    rlimit former_{};
};

} // namespace lumbra

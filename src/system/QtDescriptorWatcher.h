#pragma once

#include "platform/DescriptorWatch.h"

namespace lumbra {

/// Watches descriptors with the event loop of the calling thread: pipes, terminals, sockets and regular
/// files. Needs the application object.
class QtDescriptorWatcher final : public DescriptorWatcher {
public:
    std::unique_ptr<DescriptorWatch> watchReadable(int fd, std::function<void()> readable) override;
};

} // namespace lumbra

#include "qt/HostLookup.h"

#include <mutex>
#include <thread>
#include <utility>

namespace lumbra {

struct HostLookup::Shared {
    std::mutex mutex;
    MainQueue* queue; ///< null once called off; under the mutex
    Done done;        ///< main thread only
};

HostLookup::HostLookup(MainQueue& queue, Resolver resolver, std::string host, std::uint16_t port, Done done)
    : shared_(std::make_shared<Shared>()) {
    shared_->queue = &queue;
    shared_->done = std::move(done);
    std::thread([shared = shared_, resolver = std::move(resolver), host = std::move(host), port]() mutable {
        auto addresses = resolver(host, port);
        const std::lock_guard lock(shared->mutex);
        if (!shared->queue)
            return;
        shared->queue->post([weak = std::weak_ptr(shared), addresses = std::move(addresses)] {
            if (const auto alive = weak.lock(); alive && alive->done)
                std::exchange(alive->done, nullptr)(addresses);
        });
    }).detach();
}

HostLookup::~HostLookup() {
    {
        const std::lock_guard lock(shared_->mutex);
        shared_->queue = nullptr;
    }
    shared_->done = nullptr;
}

} // namespace lumbra

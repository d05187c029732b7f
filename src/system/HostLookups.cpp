#include "system/HostLookups.h"

#include <mutex>
#include <system_error>
#include <thread>
#include <utility>

namespace lumbra {

struct HostLookups::Mailbox {
    std::mutex mutex;
    MainQueue* queue;     ///< null once the look-ups are destroyed; under the mutex
    HostLookups* lookups; ///< main thread only
};

HostLookups::HostLookups(MainQueue& queue, Resolver resolver)
    : resolver_(std::move(resolver)), mailbox_(std::make_shared<Mailbox>()) {
    mailbox_->queue = &queue;
    mailbox_->lookups = this;
}

HostLookups::~HostLookups() {
    const std::lock_guard lock(mailbox_->mutex);
    mailbox_->queue = nullptr;
    mailbox_->lookups = nullptr;
}

HostLookups::Request HostLookups::lookUp(const std::string& host, std::uint16_t port, Callback callback) {
    auto request = std::make_shared<const Callback>(std::move(callback));
    const auto [found, isNew] = underWay_.try_emplace({host, port});
    found->second.push_back(request);
    if (!isNew) {
        std::erase_if(found->second, [](const auto& entry) { return entry.expired(); });
        return request;
    }
    try {
        std::thread([mailbox = mailbox_, resolver = resolver_, place = found->first] {
            auto addresses = resolver(place.first, place.second);
            const std::lock_guard lock(mailbox->mutex);
            if (mailbox->queue)
                mailbox->queue->post([mailbox, place, addresses = std::move(addresses)] {
                    if (mailbox->lookups)
                        mailbox->lookups->answer(place, addresses);
                });
        }).detach();
    } catch (const std::system_error&) {
        underWay_.erase(found);
        return nullptr;
    }
    return request;
}

void HostLookups::answer(const Place& place, const std::vector<SocketAddress>& addresses) {
    const auto waiting = underWay_.extract(place);
    for (const auto& entry : waiting.mapped())
        if (const auto request = entry.lock())
            (*request)(addresses);
}

} // namespace lumbra

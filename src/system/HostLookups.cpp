#include "system/HostLookups.h"

#include <mutex>
#include <system_error>
#include <thread>
#include <utility>

namespace lumbra {

struct HostLookups::Mailbox {
    std::mutex mutex;
    MainQueue* queue;     ///< null once nobody waits; under the mutex
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

HostLookups::Question HostLookups::ask(const std::string& host, std::uint16_t port, Done done) {
    auto question = std::make_shared<const Done>(std::move(done));
    const auto [found, isNew] = underWay_.try_emplace({host, port});
    found->second.push_back(question);
    if (!isNew) {
        std::erase_if(found->second, [](const auto& asked) { return asked.expired(); });
        return question;
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
    return question;
}

void HostLookups::answer(const Place& place, const std::vector<SocketAddress>& addresses) {
    const auto waiting = underWay_.extract(place);
    for (const auto& asked : waiting.mapped())
        if (const auto question = asked.lock())
            (*question)(addresses);
}

} // namespace lumbra

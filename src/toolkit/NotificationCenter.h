#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace lumbra {

/// The events that the application announces to registered observers.
enum class Notification : std::uint8_t { ApplicationDidBecomeActive };

/// Delivers notifications to registered observers, in the order of registration. Main thread only.
class NotificationCenter {
public:
    /// Registers `method` of `observer` for `notification`. The observer is not kept alive.
    template <class Observer>
    void addObserver(const std::shared_ptr<Observer>& observer, Notification notification,
                     void (Observer::*method)()) {
        entries_.push_back({observer.get(), notification, [weak = std::weak_ptr<Observer>(observer), method] {
                                if (const auto alive = weak.lock())
                                    (alive.get()->*method)();
                            }});
    }
    /// Removes all registrations of `observer`.
    void removeObserver(const void* observer) {
        std::erase_if(entries_, [observer](const Entry& entry) { return entry.observer == observer; });
    }
    void post(Notification notification) const {
        const auto entries = entries_;
        for (const auto& entry : entries)
            if (entry.notification == notification)
                entry.call();
    }

private:
    struct Entry {
        const void* observer;
        Notification notification;
        std::function<void()> call;
    };
    std::vector<Entry> entries_;
};

} // namespace lumbra

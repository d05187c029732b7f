#include "app/StatusMonitor.h"

#include <utility>

namespace lumbra {

StatusMonitor::StatusMonitor(TabBarController& tabs, ServerConnection& link, MainQueue& queue)
    : tabs_(tabs), link_(link), queue_(queue) {}

void StatusMonitor::start() {
    screens_ = tabs_.onScreenChange([this] { screenChanged(); });
    links_ = link_.onLinkChange([this] { linkChanged(); });
}

void StatusMonitor::screenChanged() {
    auto spinner = tabs_.selectedViewController()->view().outlet<ActivityIndicator>("spinner").lock();
    if (spinner == spinner_)
        return; // other tabs around the same screen
    spinner_ = std::move(spinner);
    spinnerChange_ = spinner_->onChange([this] {
        queryIsDue_ = false;
        isOldQuery_ = false;
        update();
    });
    queryIsDue_ = link_.isConnected() && link_.polling;
    isOldQuery_ = !link_.polling;
    wait_.reset();
    update();
}

void StatusMonitor::linkChanged() {
    const bool wasOpen = status_ != ScreenStatus::Offline;
    if (link_.isConnected() != wasOpen) { // else only the address has changed
        queryIsDue_ = !wasOpen && link_.polling;
        isOldQuery_ = !link_.polling;
    }
    update();
}

bool StatusMonitor::isWaiting() const {
    // A query that could not be sent stops the indicator, too.
    return queryIsDue_ || (spinner_->isAnimating() && !isOldQuery_) || link_.hasFailedToSend();
}

void StatusMonitor::update() {
    auto status = !link_.isConnected() ? ScreenStatus::Offline
                  : isWaiting()        ? ScreenStatus::Waiting
                                       : ScreenStatus::Current;
    if (status != ScreenStatus::Waiting) {
        wait_.reset();
    } else if (wait_) {
        return; // waiting or silent already
    } else {
        queue_.postAfter(PATIENCE, wait_.emplace().guard([this] {
            status_ = ScreenStatus::Silent;
            changed_.emit();
        }));
    }
    if (std::exchange(status_, status) != status)
        changed_.emit();
}

} // namespace lumbra

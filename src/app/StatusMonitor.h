#pragma once

#include "link/ServerConnection.h"
#include "platform/Lifetime.h"
#include "platform/MainQueue.h"
#include "toolkit/ActivityIndicator.h"
#include "toolkit/Signal.h"
#include "toolkit/TabBarController.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string_view>

namespace lumbra {

/// How far the values of the current screen can be trusted.
enum class ScreenStatus : std::uint8_t {
    Offline, ///< the link is not open
    Waiting, ///< the unit has not answered the screen's query yet
    Silent,  ///< it has not answered for `StatusMonitor::PATIENCE`
    Current, ///< it has answered; every later report is shown as it arrives
};

constexpr std::string_view nameOf(ScreenStatus status) {
    constexpr std::string_view NAMES[] = {"offline", "waiting", "silent", "current"};
    return NAMES[static_cast<std::size_t>(status)];
}

/// Derives the status of the current screen from the link and the screen's activity indicator. Without state
/// queries a screen is current as soon as the link is open. Main thread only.
class StatusMonitor {
public:
    static constexpr std::chrono::seconds PATIENCE{5};

    /// All three outlive the monitor.
    StatusMonitor(TabBarController& tabs, ServerConnection& link, MainQueue& queue);

    /// Begins to observe. Whoever observes the tabs, the link or the controls already is called
    /// before the status follows a change.
    void start();

    ScreenStatus status() const { return status_; }
    /// Calls `observer` after every change of the status.
    Subscription onChange(std::function<void()> observer) { return changed_.subscribe(std::move(observer)); }

private:
    void screenChanged();
    void linkChanged();
    void update();
    bool isWaiting() const;

    TabBarController& tabs_;
    ServerConnection& link_;
    MainQueue& queue_;
    ScreenStatus status_ = ScreenStatus::Offline;
    std::shared_ptr<ActivityIndicator> spinner_;
    bool queryIsDue_ = false; ///< the screen is about to send its query
    /// The indicator turns for a query that an earlier link took with it, and queries are off now.
    bool isOldQuery_ = false;
    std::optional<Lifetime> wait_; ///< of the present wait for an answer; nothing outside one
    Signal<> changed_;
    Subscription screens_;
    Subscription links_;
    Subscription spinnerChange_;
};

} // namespace lumbra

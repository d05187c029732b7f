#pragma once

#include "app/StatusMonitor.h"
#include "link/ServerConnection.h"
#include "platform/Lifetime.h"
#include "platform/MainQueue.h"
#include "toolkit/Alert.h"

#include <cstddef>
#include <functional>
#include <optional>

namespace lumbra {

/// Connects again by itself, for wall panels: while the link is closed and the application is active, runs
/// the connect step after 2, 5, 10 and then every 30 s. The alerts of these attempts are not presented. Once
/// a screen is current again, an alert that is still shown is withdrawn. The delays start again at 2 s, and alerts
/// are presented again, once the link has lasted 30 s, and when the user connects or comes back. Main thread only.
class KeepConnected {
public:
    /// What it needs of the application. All outlive this object.
    struct Surroundings {
        ServerConnection& link;
        StatusMonitor& status;
        AlertPresenter& alerts;
        MainQueue& queue;
        std::function<void()> connect; ///< runs the connect step of the current screen
    };
    explicit KeepConnected(Surroundings surroundings);

    /// The application has become active, or has resigned.
    void setActive(bool active);
    /// The user connects: the alert of a failure is presented again, and the delays start again at 2 s.
    void userConnects();

private:
    void watchLink();
    void startAgain();
    void schedule();
    void attempt();

    Surroundings with_;
    /// Since the delays started; nothing while the application is inactive.
    std::optional<std::size_t> attempts_;
    std::optional<Lifetime> due_;     ///< of the next attempt; nothing if none is due
    std::optional<Lifetime> lasting_; ///< of the wait until the link has lasted; nothing while it is not open
    Subscription links_;
    Subscription statuses_;
};

} // namespace lumbra

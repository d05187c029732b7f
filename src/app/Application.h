#pragma once

#include "app/AppDelegate.h"
#include "app/Condition.h"
#include "app/Hands.h"
#include "app/KeepConnected.h"
#include "app/NetworkTabController.h"
#include "app/Notice.h"
#include "app/StatusMonitor.h"
#include "platform/MainQueue.h"
#include "platform/Reachability.h"
#include "platform/SettingsStore.h"
#include "platform/Streams.h"
#include "platform/Worker.h"
#include "toolkit/Alert.h"
#include "toolkit/ItemList.h"
#include "toolkit/Signal.h"

#include <memory>
#include <optional>
#include <vector>

namespace lumbra {

/// The platform that the application runs on. Everything outlives the application. All but the settings also
/// outlive what it has posted to the queue and the worker: a worker may be opening a link when it ends.
struct Platform {
    MainQueue& queue;
    Worker& worker;
    StreamFactory& streams;
    const Reachability& reachability;
    SettingsStore& settings;
};

/// Whether a closed link is opened again without the user.
enum class Reconnection { ByUser, Automatic };

/// The whole application behind its controls, for any front end. Main thread only.
///
/// A front end calls `launch` once. From then on it shows `tabs().selectedViewController()->view()` and the
/// alert of `alerts()`, operates controls through their `...ByUser` members, and forwards the platform's
/// lifecycle events in order.
///
/// It may be destroyed at any time, launched or not, while others go on with the same queue and worker, except
/// inside one of its own calls or observers. That closes its link, and nothing that it has posted has an effect
/// any more. A front end, and what it has kept of the application, ends before.
class Application {
public:
    explicit Application(const Platform& platform, Reconnection reconnection = Reconnection::ByUser);
    ~Application();

    /// Builds the tabs, selects the start tab, shows its screen (which connects) and becomes active.
    void launch();

    // The platform's lifecycle events. On becoming active the delegate acts first, then the current screen.
    void resignActive();
    void enterBackground();
    void enterForeground() {} // nothing depends on it
    void becomeActive();
    /// The application is about to end: writes its settings.
    void terminate();

    /// Runs the connect step of the current screen, and nothing else.
    void reconnect();

    NetworkTabController& tabs() { return *tabs_; }
    /// The tabs of normal or advanced mode.
    std::vector<std::shared_ptr<ViewController>> tabsInMode(bool advanced) const {
        return delegate_.tabsInMode(advanced);
    }
    ServerConnection& link() { return *tabs_->serverConn(); }
    StatusMonitor& status() { return status_; }
    Hands& hands() { return hands_; }
    /// True for a control that can't be operated now: its command would be lost, because the link is not open. What
    /// only chooses what is shown is never locked.
    bool isLocked(const View::Item& item) const { return item.sends && hands_.isLocked(); }
    /// The state of the link and the status of the screen in one.
    Condition condition() const;
    /// The rows of the current screen's item picker. Null on a screen without items.
    const ItemList* items() const;
    /// True if a closed link is opened again without the user.
    bool keepsConnected() const { return keepConnected_.has_value(); }
    AlertPresenter& alerts() { return alerts_; }
    /// The alert as a person is told of it.
    Notice& notice() { return notice_; }
    SettingsStore& settings() { return platform_.settings; }
    MainQueue& queue() { return platform_.queue; }

private:
    ScreenViewController& screen() const;

    Platform platform_;
    AlertPresenter alerts_;
    std::shared_ptr<NetworkTabController> tabs_;
    AppDelegate delegate_;
    StatusMonitor status_;
    Hands hands_;
    Notice notice_;
    std::optional<KeepConnected> keepConnected_;
    Subscription screens_;
};

} // namespace lumbra

#pragma once

#include "app/NetworkTabController.h"
#include "platform/SettingsStore.h"
#include "toolkit/ViewController.h"

#include <memory>
#include <vector>

namespace lumbra {

/// Handles the application's lifecycle events: builds the tabs for the mode, selects the start tab, closes
/// the connection when the application resigns active, and keeps the tab controller's background flag. Main
/// thread only.
class AppDelegate {
public:
    /// `tabs` holds the layout's five screens, beginning with Zone and Output. `settings` outlives the
    /// delegate.
    AppDelegate(std::shared_ptr<NetworkTabController> tabs, SettingsStore& settings);

    /// From now on one of the first two tabs is left out.
    void didFinishLaunching();
    void willResignActive();
    void didEnterBackground();
    void didBecomeActive();
    void willTerminate();

    /// The tabs of normal or advanced mode.
    std::vector<std::shared_ptr<ViewController>> tabsInMode(bool advanced) const;

private:
    void shapeTabs(bool advanced);

    std::shared_ptr<NetworkTabController> tabBarController_;
    SettingsStore& settings_;
    // Both stay alive with their models, because the mode may change later.
    std::shared_ptr<ViewController> zoneVC_;
    std::shared_ptr<ViewController> outputVC_;
    std::vector<std::shared_ptr<ViewController>> otherVCs_;
};

} // namespace lumbra

#pragma once

#include "app/NetworkTabController.h"
#include "platform/SettingsStore.h"
#include "toolkit/ViewController.h"

#include <memory>
#include <vector>

namespace lumbra {

/// Receives the application's lifecycle events: shapes the tabs by mode, selects the start tab, closes the connection
/// when the application resigns active and keeps the tab controller's background flag. Main thread only.
class AppDelegate {
public:
    /// `tabs` holds the layout's five screens, the Zone and the Output screen first. `settings` outlives the delegate.
    AppDelegate(std::shared_ptr<NetworkTabController> tabs, SettingsStore& settings);

    /// From here on one of the first two tabs is left out.
    void didFinishLaunching();
    void willResignActive();
    void didEnterBackground();
    void didBecomeActive();
    void willTerminate();

    /// The tabs as they are in normal or in advanced mode.
    std::vector<std::shared_ptr<ViewController>> tabsInMode(bool advanced) const;

private:
    void shapeTabs(bool advanced);

    std::shared_ptr<NetworkTabController> tabBarController_;
    SettingsStore& settings_;
    // Both stay alive with their models, for a later change of the mode.
    std::shared_ptr<ViewController> zoneVC_;
    std::shared_ptr<ViewController> outputVC_;
    std::vector<std::shared_ptr<ViewController>> otherVCs_;
};

} // namespace lumbra

#pragma once

#include "app/NetworkTabController.h"
#include "platform/SettingsStore.h"
#include "toolkit/ViewController.h"

#include <memory>

namespace lumbra {

/// The application's one window.
struct Window {
    std::shared_ptr<ViewController> rootViewController;
};

/// Receives the application's life: shapes the tabs by mode, selects the start tab, closes the connection
/// when the application resigns active and keeps the tab controller's background flag. Main thread only.
class AppDelegate {
public:
    /// `settings` outlives the delegate.
    AppDelegate(std::shared_ptr<Window> window, SettingsStore& settings);

    /// The tabs are those of the layout, all five; one of the first two is left out from here on.
    bool didFinishLaunching();
    void willResignActive();
    void didEnterBackground();
    void willEnterForeground() {}
    void didBecomeActive();
    void willTerminate();

private:
    std::shared_ptr<NetworkTabController> rootTabController() const;

    std::shared_ptr<Window> window_;
    SettingsStore& settings_;
    std::shared_ptr<NetworkTabController> tabBarController_;
    // Both stay alive, the one that is not among the tabs with its models, for a later change of the mode.
    std::shared_ptr<ViewController> zoneVC_;
    std::shared_ptr<ViewController> outputVC_;
};

} // namespace lumbra

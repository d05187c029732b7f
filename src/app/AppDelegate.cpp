#include "app/AppDelegate.h"

#include "app/Settings.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <utility>

namespace lumbra {

namespace {

/// A stored start tab may be any number; one that no tab bar can have selects nothing.
int startTab(const SettingsStore& settings) {
    const auto stored = settings.integer(START_TAB_PREFERENCE);
    return static_cast<int>(std::clamp<std::int64_t>(stored, -1, std::numeric_limits<int>::max()));
}

} // namespace

AppDelegate::AppDelegate(std::shared_ptr<Window> window, SettingsStore& settings)
    : window_(std::move(window)), settings_(settings) {}

std::shared_ptr<NetworkTabController> AppDelegate::rootTabController() const {
    return std::dynamic_pointer_cast<NetworkTabController>(window_->rootViewController);
}

bool AppDelegate::didFinishLaunching() {
    const int start = startTab(settings_);
    const bool advanced = settings_.flag(ADVANCED_MODE_PREFERENCE);
    tabBarController_ = rootTabController();
    if (tabBarController_) {
        tabBarController_->setAdvancedMode(advanced);
        auto tabs = tabBarController_->viewControllers();
        zoneVC_ = tabs.at(0);
        outputVC_ = tabs.at(1);
        tabs.erase(tabs.begin() + (advanced ? 0 : 1));
        tabBarController_->setViewControllers(std::move(tabs));
        tabBarController_->setSelectedIndex(start);
        tabBarController_->setTintColor(Color::White);
    }
    return true;
}

void AppDelegate::willResignActive() {
    if (const auto tabs = rootTabController())
        tabs->serverConn()->closeConnection();
}

void AppDelegate::didEnterBackground() {
    if (tabBarController_)
        tabBarController_->setAppWasInBackground(true);
}

void AppDelegate::didBecomeActive() {
    const bool advanced = settings_.flag(ADVANCED_MODE_PREFERENCE);
    const int start = startTab(settings_);
    const auto tabController = rootTabController();
    if (!tabController || tabController->advancedMode() == advanced)
        return;
    tabController->setAdvancedMode(advanced);
    auto tabs = tabController->viewControllers();
    tabs.front() = advanced ? outputVC_ : zoneVC_;
    tabController->setViewControllers(std::move(tabs));
    tabController->setSelectedIndex(start);
}

void AppDelegate::willTerminate() {
    if (tabBarController_)
        tabBarController_->setAppWasInBackground(false);
}

} // namespace lumbra

#include "app/AppDelegate.h"

#include "app/Settings.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <utility>

namespace lumbra {

namespace {

/// A stored start tab may be any number. One that is out of range selects nothing.
int startTab(const SettingsStore& settings) {
    const auto stored = settings.integer(START_TAB_PREFERENCE);
    return static_cast<int>(std::clamp<std::int64_t>(stored, -1, std::numeric_limits<int>::max()));
}

} // namespace

AppDelegate::AppDelegate(std::shared_ptr<NetworkTabController> tabs, SettingsStore& settings)
    : tabBarController_(std::move(tabs)),
      settings_(settings),
      zoneVC_(tabBarController_->viewControllers().at(0)),
      outputVC_(tabBarController_->viewControllers().at(1)),
      otherVCs_(tabBarController_->viewControllers().begin() + 2,
                tabBarController_->viewControllers().end()) {}

std::vector<std::shared_ptr<ViewController>> AppDelegate::tabsInMode(bool advanced) const {
    std::vector tabs{advanced ? outputVC_ : zoneVC_};
    tabs.insert(tabs.end(), otherVCs_.begin(), otherVCs_.end());
    return tabs;
}

void AppDelegate::shapeTabs(bool advanced) {
    const int start = startTab(settings_);
    tabBarController_->setAdvancedMode(advanced);
    tabBarController_->setViewControllers(tabsInMode(advanced));
    tabBarController_->setSelectedIndex(start);
}

void AppDelegate::didFinishLaunching() {
    shapeTabs(settings_.flag(ADVANCED_MODE_PREFERENCE));
}

void AppDelegate::willResignActive() {
    tabBarController_->serverConn()->closeConnection();
}

void AppDelegate::didEnterBackground() {
    tabBarController_->setAppWasInBackground(true);
}

void AppDelegate::didBecomeActive() {
    const bool advanced = settings_.flag(ADVANCED_MODE_PREFERENCE);
    if (advanced != tabBarController_->advancedMode())
        shapeTabs(advanced);
}

void AppDelegate::willTerminate() {
    tabBarController_->setAppWasInBackground(false);
}

} // namespace lumbra

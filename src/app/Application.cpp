#include "app/Application.h"

#include "app/Layout.h"
#include "screens/GroupViewController.h"
#include "screens/OutputViewController.h"
#include "screens/OverrideViewController.h"
#include "screens/SceneViewController.h"
#include "screens/ZoneViewController.h"

#include <vector>

namespace lumbra {

namespace {

std::shared_ptr<NetworkTabController> buildTabs(const Platform& platform, NotificationCenter& notifications,
                                                AlertPresenter& alerts) {
    const auto connection =
        std::make_shared<ServerConnection>(platform.queue, platform.streams, platform.reachability);
    auto tabs = std::make_shared<NetworkTabController>(connection, platform.settings);
    const ScreenContext context{platform.queue, platform.worker, notifications, alerts, *tabs};
    tabs->setViewControllers({
        std::make_shared<ZoneViewController>(context, buildView("zone")),
        std::make_shared<OutputViewController>(context, buildView("output")),
        std::make_shared<GroupViewController>(context, buildView("group")),
        std::make_shared<OverrideViewController>(context, buildView("override")),
        std::make_shared<SceneViewController>(context, buildView("scene")),
    });
    return tabs;
}

} // namespace

Application::Application(const Platform& platform)
    : platform_(platform),
      tabs_(buildTabs(platform, notifications_, alerts_)),
      delegate_(tabs_, platform.settings) {}

Application::~Application() {
    tabs_->serverConn()->closeConnection();
    // The connection and the current screen own each other.
    tabs_->serverConn()->setDelegate(nullptr);
}

void Application::launch() {
    delegate_.didFinishLaunching();
    tabs_->loadViewIfNeeded();
    tabs_->viewWillAppear();
    becomeActive();
}

void Application::resignActive() {
    delegate_.willResignActive();
}

void Application::enterBackground() {
    delegate_.didEnterBackground();
}

void Application::becomeActive() {
    delegate_.didBecomeActive();
    notifications_.post(Notification::ApplicationDidBecomeActive);
}

void Application::terminate() {
    delegate_.willTerminate();
    platform_.settings.flush();
}

void Application::reconnect() {
    if (const auto screen = std::dynamic_pointer_cast<ScreenViewController>(tabs_->selectedViewController()))
        screen->connectServer();
}

} // namespace lumbra

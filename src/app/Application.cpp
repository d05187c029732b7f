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

std::shared_ptr<NetworkTabController> buildTabs(const Platform& platform, AlertPresenter& alerts) {
    const auto connection =
        std::make_shared<ServerConnection>(platform.queue, platform.streams, platform.reachability);
    auto tabs = std::make_shared<NetworkTabController>(connection, platform.settings);
    const ScreenContext context{platform.queue, platform.worker, alerts, *tabs};
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

Application::Application(const Platform& platform, Reconnection reconnection)
    : platform_(platform),
      tabs_(buildTabs(platform, alerts_)),
      delegate_(tabs_, platform.settings),
      status_(*tabs_, link(), platform.queue),
      hands_(*tabs_, link(), platform.queue),
      notice_(alerts_, link(), reconnection == Reconnection::Automatic) {
    if (reconnection != Reconnection::Automatic)
        return;
    keepConnected_.emplace(KeepConnected::Surroundings{link(), status_, alerts_, platform.queue,
                                                       [this] { screen().connectServer(); }});
    // The screen that appears runs its connect step for the user.
    screens_ = tabs_->onScreenChange([this] { keepConnected_->userConnects(); });
}

Application::~Application() {
    tabs_->serverConn()->closeConnection();
    // The connection and the current screen own each other.
    tabs_->serverConn()->setDelegate(nullptr);
}

void Application::launch() {
    status_.start();
    delegate_.didFinishLaunching();
    tabs_->loadViewIfNeeded();
    tabs_->viewWillAppear();
    becomeActive();
}

void Application::resignActive() {
    if (keepConnected_)
        keepConnected_->setActive(false);
    delegate_.willResignActive();
}

void Application::enterBackground() {
    delegate_.didEnterBackground();
}

void Application::becomeActive() {
    delegate_.didBecomeActive();
    screen().applicationDidBecomeActive();
    if (keepConnected_)
        keepConnected_->setActive(true);
}

void Application::terminate() {
    delegate_.willTerminate();
    platform_.settings.flush();
}

void Application::reconnect() {
    notice_.userConnects();
    if (keepConnected_)
        keepConnected_->userConnects();
    screen().connectServer();
}

Condition Application::condition() const {
    switch (status_.status()) {
    case ScreenStatus::Waiting:
        return Condition::Waiting;
    case ScreenStatus::Silent:
        return Condition::Silent;
    case ScreenStatus::Current:
        return Condition::Current;
    case ScreenStatus::Offline:
        break;
    }
    if (tabs_->serverConn()->linkState() != LinkState::Closed)
        return Condition::Connecting;
    return keepsConnected() ? Condition::Retrying : Condition::NotConnected;
}

const ItemList* Application::items() const {
    return dynamic_cast<const ItemList*>(tabs_->selectedViewController().get());
}

ScreenViewController& Application::screen() const {
    return static_cast<ScreenViewController&>(*tabs_->selectedViewController());
}

} // namespace lumbra

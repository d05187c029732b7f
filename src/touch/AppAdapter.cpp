#include "touch/AppAdapter.h"

#include <algorithm>

namespace lumbra {

AppAdapter::AppAdapter(Application& application, WindowLife& life, const QString& endpoint, QObject* parent)
    : QObject(parent),
      application_(application),
      refreshQueue_(application.queue()),
      link_(new LinkAdapter(application, endpoint, refreshQueue_, this)),
      alert_(new AlertAdapter(application.notice(), refreshQueue_, this)),
      settings_(new SettingsAdapter(application, life, refreshQueue_, this)),
      screenChange_(application.tabs().onScreenChange([this] { updateTabs(); })),
      alertChange_(application.alerts().onChange([this] { handsOff(); })) {
    updateTabs();
}

void AppAdapter::updateTabs() {
    QList<ScreenAdapter*> tabs;
    for (const auto& controller : application_.tabs().viewControllers())
        tabs << adapterOf(controller);
    const auto shown = application_.tabs().selectedViewController();
    screen_ = shown ? adapterOf(shown) : nullptr;
    if (tabs != tabs_) {
        tabs_ = tabs;
        Q_EMIT tabsChanged();
    }
    Q_EMIT selectedChanged();
}

ScreenAdapter* AppAdapter::adapterOf(const std::shared_ptr<ViewController>& controller) {
    const auto known = std::find_if(screens_.begin(), screens_.end(),
                                    [&](const auto* screen) { return screen->controller() == controller; });
    if (known != screens_.end())
        return *known;
    return screens_.emplace_back(new ScreenAdapter(controller, application_, refreshQueue_, this));
}

} // namespace lumbra

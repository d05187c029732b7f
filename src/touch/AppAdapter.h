#pragma once

#include "app/Application.h"
#include "app/WindowLife.h"
#include "touch/AlertAdapter.h"
#include "touch/LinkAdapter.h"
#include "touch/RefreshQueue.h"
#include "touch/ScreenAdapter.h"
#include "touch/SettingsAdapter.h"

#include <QList>
#include <QObject>
#include <QQmlListProperty>
#include <QtQml/qqmlregistration.h>

#include <memory>
#include <vector>

namespace lumbra {

/// Exposes the application to QML: the tabs, the current screen, the link, the alert and the settings. Main
/// thread only.
class AppAdapter final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("the front end gives it")
    Q_PROPERTY(QQmlListProperty<lumbra::ScreenAdapter> tabs READ tabs NOTIFY tabsChanged)
    Q_PROPERTY(int selected READ selected NOTIFY selectedChanged)
    Q_PROPERTY(lumbra::ScreenAdapter* screen READ screen NOTIFY selectedChanged)
    Q_PROPERTY(lumbra::LinkAdapter* link READ link CONSTANT)
    Q_PROPERTY(lumbra::AlertAdapter* alert READ alert CONSTANT)
    Q_PROPERTY(lumbra::SettingsAdapter* settings READ settings CONSTANT)

public:
    /// `application` and `life` outlive the adapter. The application may be launched before or after.
    /// `endpoint` is as for LinkAdapter.
    AppAdapter(Application& application, WindowLife& life, const QString& endpoint = {},
               QObject* parent = nullptr);

    QQmlListProperty<ScreenAdapter> tabs() { return {this, &tabs_}; }
    int selected() const { return application_.tabs().selectedIndex(); }
    ScreenAdapter* screen() const { return screen_; }
    LinkAdapter* link() const { return link_; }
    AlertAdapter* alert() const { return alert_; }
    SettingsAdapter* settings() const { return settings_; }

    /// The user selects a tab by its 0-based position, which may be selected already.
    Q_INVOKABLE void selectTab(int index) { application_.tabs().selectByUser(index); }

    /// Takes all hands off, because what is under the finger has moved or disappeared.
    Q_INVOKABLE void handsOff() { application_.hands().cancel(); }

Q_SIGNALS:
    void tabsChanged();
    void selectedChanged();

private:
    void updateTabs();
    ScreenAdapter* adapterOf(const std::shared_ptr<ViewController>& controller);

    Application& application_;
    RefreshQueue refreshQueue_;
    std::vector<ScreenAdapter*> screens_; ///< every screen that has been a tab, also those that are none now
    QList<ScreenAdapter*> tabs_;
    ScreenAdapter* screen_ = nullptr;
    LinkAdapter* link_;
    AlertAdapter* alert_;
    SettingsAdapter* settings_;
    Subscription screenChange_;
    Subscription alertChange_;
};

} // namespace lumbra

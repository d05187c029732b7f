#pragma once

#include "link/ScreenViewController.h"
#include "link/ServerConnection.h"
#include "platform/SettingsStore.h"
#include "toolkit/TabBarController.h"

#include <memory>

namespace lumbra {

/// The root controller: holds the screens as tabs, owns the connection that they share, loads the stored link
/// settings into it, and stores the tab that the user selects. Main thread only.
class NetworkTabController final : public TabBarController, public LinkOwner {
public:
    /// Takes ownership of a new connection and loads the stored link settings into it. `settings` outlives
    /// the controller.
    NetworkTabController(std::shared_ptr<ServerConnection> connection, SettingsStore& settings);

    std::shared_ptr<ServerConnection> serverConn() const override { return serverConn_; }
    bool appWasInBackground() const override { return appWasInBackground_; }
    void setAppWasInBackground(bool wasInBackground) { appWasInBackground_ = wasInBackground; }

    /// The mode that the present tabs were built for.
    bool advancedMode() const { return advancedMode_; }
    void setAdvancedMode(bool advanced) { advancedMode_ = advanced; }

    /// Loads the four stored link settings into the connection, all or none. If the address is absent or the
    /// unit number is not 1 to 4, the values of the connection are stored instead.
    void updateFromPreferences() override;

private:
    void didSelectViewController() override;

    std::shared_ptr<ServerConnection> serverConn_;
    SettingsStore& settings_;
    bool appWasInBackground_ = false;
    bool advancedMode_ = false;
};

} // namespace lumbra

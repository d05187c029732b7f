#include "app/NetworkTabController.h"

#include "app/Settings.h"

#include <cstdint>
#include <utility>

namespace lumbra {

NetworkTabController::NetworkTabController(std::shared_ptr<ServerConnection> connection,
                                           SettingsStore& settings)
    : serverConn_(std::move(connection)), settings_(settings) {
    NetworkTabController::updateFromPreferences();
}

void NetworkTabController::updateFromPreferences() {
    const auto address = settings_.text(IP_ADDRESS_PREFERENCE);
    const auto unit = settings_.integer(UNIT_NUMBER_PREFERENCE);
    const bool polling = settings_.flag(POLLING_PREFERENCE);
    const bool serial = settings_.flag(SERIAL_PORT_PREFERENCE);
    if (address && unit >= MIN_UNIT_NUMBER && unit <= MAX_UNIT_NUMBER) {
        serverConn_->setIpAddress(*address);
        serverConn_->unit = unit;
        serverConn_->polling = polling;
        serverConn_->serial = serial;
        return;
    }
    settings_.setValue(IP_ADDRESS_PREFERENCE, serverConn_->ip_address());
    settings_.setValue(UNIT_NUMBER_PREFERENCE, serverConn_->unit);
    settings_.setValue(POLLING_PREFERENCE, serverConn_->polling);
    settings_.setValue(SERIAL_PORT_PREFERENCE, serverConn_->serial);
}

void NetworkTabController::didSelectViewController() {
    settings_.setValue(START_TAB_PREFERENCE, std::int64_t{selectedIndex()});
    settings_.flush();
}

} // namespace lumbra

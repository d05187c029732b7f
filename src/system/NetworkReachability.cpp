#include "system/NetworkReachability.h"

#include <QNetworkInterface>

#include <algorithm>

namespace lumbra {

bool NetworkReachability::isReachable() const {
    const auto interfaces = QNetworkInterface::allInterfaces();
    return std::any_of(interfaces.begin(), interfaces.end(), [](const QNetworkInterface& interface) {
        const auto flags = interface.flags();
        return flags.testFlag(QNetworkInterface::IsUp) && flags.testFlag(QNetworkInterface::IsRunning) &&
               !flags.testFlag(QNetworkInterface::IsLoopBack) && !interface.addressEntries().isEmpty();
    });
}

} // namespace lumbra

#include "touch/LinkAdapter.h"

#include "link/ServerConnection.h"

namespace lumbra {

LinkAdapter::LinkAdapter(Application& application, RefreshQueue& queue, QObject* parent)
    : Adapter(queue, parent),
      application_(application),
      subscription_(application.link().onLinkChange([this] { mark(); })) {}

LinkAdapter::State LinkAdapter::state() const {
    switch (application_.link().linkState()) {
    case LinkState::Opening:
        return State::Connecting;
    case LinkState::Open:
        return State::Connected;
    case LinkState::Closed:
        break;
    }
    return State::NotConnected;
}

QString LinkAdapter::address() const {
    return QString::fromStdString(application_.link().ip_address());
}

} // namespace lumbra

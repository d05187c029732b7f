#include "touch/LinkAdapter.h"

#include "link/ServerConnection.h"

#include <utility>

namespace lumbra {

LinkAdapter::LinkAdapter(Application& application, QString endpoint, RefreshQueue& queue, QObject* parent)
    : Adapter(queue, parent),
      application_(application),
      endpoint_(std::move(endpoint)),
      linkChange_(application.link().onLinkChange([this] { mark(); })),
      statusChange_(application.status().onChange([this] { mark(); })) {}

LinkAdapter::State LinkAdapter::state() const {
    switch (application_.status().status()) {
    case ScreenStatus::Waiting:
        return State::Waiting;
    case ScreenStatus::Silent:
        return State::Silent;
    case ScreenStatus::Current:
        return State::Current;
    case ScreenStatus::Offline:
        break;
    }
    if (application_.link().linkState() != LinkState::Closed)
        return State::Connecting;
    return application_.keepsConnected() ? State::Retrying : State::NotConnected;
}

QString LinkAdapter::address() const {
    return isRedirected() ? endpoint_ : QString::fromStdString(application_.link().ip_address());
}

} // namespace lumbra

#include "touch/LinkAdapter.h"

#include "link/ServerConnection.h"
#include "touch/Captions.h"

#include <utility>

namespace lumbra {

LinkAdapter::LinkAdapter(Application& application, QString endpoint, RefreshQueue& queue, QObject* parent)
    : Adapter(queue, parent),
      application_(application),
      endpoint_(std::move(endpoint)),
      linkChange_(application.link().onLinkChange([this] { mark(); })),
      statusChange_(application.status().onChange([this] { mark(); })) {}

QString LinkAdapter::text() const {
    return translatedText(textOf(application_.condition(), application_.link().unit));
}

QString LinkAdapter::address() const {
    return isRedirected() ? endpoint_ : QString::fromStdString(application_.link().ip_address());
}

} // namespace lumbra

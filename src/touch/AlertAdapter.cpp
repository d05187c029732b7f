#include "touch/AlertAdapter.h"

#include "touch/Captions.h"

namespace lumbra {

AlertAdapter::AlertAdapter(Notice& notice, RefreshQueue& queue, QObject* parent)
    : Adapter(queue, parent), notice_(notice), subscription_(notice.onChange([this] { mark(); })) {}

void AlertAdapter::dismiss() {
    notice_.dismiss();
    Q_EMIT changed();
}

QString AlertAdapter::text(Text Alert::*field) const {
    return notice_.shown() ? translatedText(notice_.shown()->*field) : QString();
}

} // namespace lumbra

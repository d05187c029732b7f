#include "touch/AlertAdapter.h"

#include "touch/Captions.h"

namespace lumbra {

AlertAdapter::AlertAdapter(AlertPresenter& presenter, RefreshQueue& queue, QObject* parent)
    : Adapter(queue, parent), presenter_(presenter), subscription_(presenter.onChange([this] { mark(); })) {}

void AlertAdapter::dismiss() {
    if (presenter_.dismissByUser())
        Q_EMIT changed();
}

QString AlertAdapter::text(Text Alert::*field) const {
    return presenter_.shown() ? translatedText(*presenter_.shown().*field) : QString();
}

} // namespace lumbra

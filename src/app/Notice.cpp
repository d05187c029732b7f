#include "app/Notice.h"

namespace lumbra {

Notice::Notice(AlertPresenter& alerts, ServerConnection& link, bool quiet)
    : alerts_(alerts),
      link_(link),
      quiet_(quiet),
      alertChange_(alerts.onChange([this] { alertChanged(); })),
      linkChange_(link.onLinkChange([this] { linkChanged(); })) {}

void Notice::dismiss() {
    if (!shown())
        return;
    seen_ = shown()->message;
    alerts_.dismissByUser();
}

void Notice::alertChanged() {
    isDue_ = !quiet_ && alerts_.shown() && alerts_.shown()->message != seen_;
    changed_.emit();
}

void Notice::linkChanged() {
    if (std::exchange(isOpen_, link_.isConnected()) || !isOpen_)
        return;
    // It has come to an end by itself.
    isDue_ = false;
    seen_.reset();
    changed_.emit();
}

} // namespace lumbra

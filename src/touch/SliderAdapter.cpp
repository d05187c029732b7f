#include "touch/SliderAdapter.h"

#include <algorithm>

namespace lumbra {

void SliderAdapter::grab() {
    if (holds_++ > 0)
        return;
    handValue_ = control_->value();
    moved_ = false;
    Q_EMIT changed();
}

void SliderAdapter::release() {
    if (holds_ == 0 || --holds_ > 0)
        return;
    if (moved_ && control_->value() != handValue_)
        control_->slideByUser(handValue_);
    Q_EMIT changed();
}

bool SliderAdapter::moveToPosition(qreal position) {
    return moveTo(static_cast<float>(minimum() + std::clamp(position, 0.0, 1.0) * (maximum() - minimum())));
}

bool SliderAdapter::moveBy(qreal difference) {
    return moveTo(static_cast<float>(value() + difference));
}

bool SliderAdapter::moveToValue(qreal value) {
    return moveTo(static_cast<float>(value));
}

bool SliderAdapter::moveTo(float value) {
    const float held = std::clamp(value, control_->minimum(), control_->maximum());
    if (!isEnabled())
        return false;
    if (held == shown())
        return true;
    if (isHeld()) {
        handValue_ = held;
        moved_ = true;
    }
    control_->slideByUser(held);
    Q_EMIT changed();
    return true;
}

} // namespace lumbra

#include "touch/SliderAdapter.h"

#include <algorithm>
#include <cmath>

namespace lumbra {

bool SliderAdapter::isHeldBy(const void* hand) const {
    return std::find(hands_.begin(), hands_.end(), hand) != hands_.end();
}

void SliderAdapter::grab(const void* hand) {
    if (isHeldBy(hand))
        return;
    hands_.push_back(hand);
    if (hands_.size() > 1)
        return;
    handValue_ = control_->value();
    moved_ = false;
    Q_EMIT changed();
}

void SliderAdapter::release(const void* hand) {
    if (std::erase(hands_, hand) == 0 || isHeld())
        return;
    if (moved_ && control_->value() != handValue_)
        control_->slideByUser(handValue_);
    Q_EMIT changed();
}

void SliderAdapter::dropHands() {
    if (!isHeld())
        return;
    hands_.clear();
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
    if (!isEnabled() || !std::isfinite(value))
        return false;
    const float held = std::clamp(value, control_->minimum(), control_->maximum());
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

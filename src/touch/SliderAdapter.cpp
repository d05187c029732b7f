#include "touch/SliderAdapter.h"

#include <algorithm>
#include <cmath>

namespace lumbra {

bool SliderAdapter::isHeldBy(const void* holder) const {
    return std::find(holders_.begin(), holders_.end(), holder) != holders_.end();
}

void SliderAdapter::grab(const void* holder) {
    if (isHeldBy(holder))
        return;
    holders_.push_back(holder);
    if (holders_.size() > 1)
        return;
    heldValue_ = control_->value();
    moved_ = false;
    Q_EMIT changed();
}

void SliderAdapter::release(const void* holder) {
    if (std::erase(holders_, holder) == 0 || isHeld())
        return;
    if (moved_ && control_->value() != heldValue_)
        control_->slideByUser(heldValue_);
    Q_EMIT changed();
}

void SliderAdapter::cancelGrabs() {
    if (!isHeld())
        return;
    holders_.clear();
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
    const float clamped = std::clamp(value, control_->minimum(), control_->maximum());
    if (clamped == shown())
        return true;
    if (isHeld()) {
        heldValue_ = clamped;
        moved_ = true;
    }
    control_->slideByUser(clamped);
    Q_EMIT changed();
    return true;
}

} // namespace lumbra

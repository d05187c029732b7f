#include "app/Finger.h"

#include <cmath>

namespace lumbra {

bool Finger::press() {
    last_.reset();
    offset_ = 0;
    return hand_.grab(this);
}

bool Finger::dragTo(float value) {
    if (!hand_.isHeldBy(this) || !std::isfinite(value))
        return false;
    if (last_ && hand_.shown() != last_->left)
        offset_ = hand_.shown() - last_->asked;
    const bool moved = hand_.moveTo(value + offset_);
    last_ = {value, hand_.shown()};
    return moved;
}

bool Finger::moveBy(float difference) {
    return hand_.isHeldBy(this) && hand_.moveTo(hand_.shown() + difference);
}

} // namespace lumbra

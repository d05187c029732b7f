#include "touch/SliderGrab.h"

#include <cmath>

namespace lumbra {

void SliderGrab::setSlider(SliderAdapter* slider) {
    if (slider == slider_)
        return;
    end();
    slider_ = slider;
    Q_EMIT sliderChanged();
}

void SliderGrab::begin() {
    last_.reset();
    offset_ = 0;
    if (slider_)
        slider_->grab(this);
}

void SliderGrab::end() {
    if (slider_)
        slider_->release(this);
}

bool SliderGrab::dragToPosition(qreal position) {
    return slider_ && dragToValue(slider_->minimum() + position * (slider_->maximum() - slider_->minimum()));
}

bool SliderGrab::dragToValue(qreal value) {
    if (!isActive() || !std::isfinite(value))
        return false;
    if (last_ && slider_->value() != last_->left)
        offset_ = slider_->value() - last_->asked;
    const bool moved = slider_->moveToValue(value + offset_);
    last_ = {value, slider_->value()};
    return moved;
}

bool SliderGrab::moveBy(qreal difference) {
    return isActive() && slider_->moveBy(difference);
}

} // namespace lumbra

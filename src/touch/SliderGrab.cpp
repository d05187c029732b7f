#include "touch/SliderGrab.h"

namespace lumbra {

void SliderGrab::setSlider(SliderAdapter* slider) {
    if (slider == slider_)
        return;
    end();
    slider_ = slider;
    Q_EMIT sliderChanged();
}

void SliderGrab::begin() {
    if (slider_)
        slider_->grab(this);
}

void SliderGrab::end() {
    if (slider_)
        slider_->release(this);
}

bool SliderGrab::dragToPosition(qreal position) {
    return isActive() && slider_->moveToPosition(position);
}

bool SliderGrab::dragToValue(qreal value) {
    return isActive() && slider_->moveToValue(value);
}

} // namespace lumbra

#include "touch/SliderHold.h"

namespace lumbra {

void SliderHold::setSlider(SliderAdapter* slider) {
    if (slider == slider_)
        return;
    end();
    slider_ = slider;
    Q_EMIT sliderChanged();
}

void SliderHold::take() {
    if (slider_)
        slider_->grab(this);
}

void SliderHold::end() {
    if (slider_)
        slider_->release(this);
}

bool SliderHold::dragToPosition(qreal position) {
    return holds() && slider_->moveToPosition(position);
}

bool SliderHold::dragToValue(qreal value) {
    return holds() && slider_->moveToValue(value);
}

} // namespace lumbra

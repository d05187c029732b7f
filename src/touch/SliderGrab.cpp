#include "touch/SliderGrab.h"

namespace lumbra {

void SliderGrab::setSlider(SliderAdapter* slider) {
    if (slider == slider_)
        return;
    finger_.reset();
    if (slider_)
        slider_->disconnect(this);
    slider_ = slider;
    if (slider_) {
        finger_.emplace(slider_->hand());
        // The hand outlives its adapter.
        QObject::connect(slider_, &QObject::destroyed, this, [this] {
            finger_.reset();
            slider_ = nullptr;
        });
    }
    Q_EMIT sliderChanged();
}

void SliderGrab::begin() {
    if (!finger_)
        return;
    finger_->press();
    Q_EMIT slider_->changed();
}

void SliderGrab::end() {
    if (!finger_)
        return;
    finger_->lift();
    Q_EMIT slider_->changed();
}

bool SliderGrab::dragToPosition(qreal position) {
    return slider_ && dragToValue(slider_->valueAt(position));
}

bool SliderGrab::dragToValue(qreal value) {
    if (!finger_)
        return false;
    const bool moved = finger_->dragTo(static_cast<float>(value));
    Q_EMIT slider_->changed();
    return moved;
}

bool SliderGrab::moveBy(qreal difference) {
    if (!finger_)
        return false;
    const bool moved = finger_->moveBy(static_cast<float>(difference));
    Q_EMIT slider_->changed();
    return moved;
}

} // namespace lumbra

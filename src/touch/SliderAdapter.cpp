#include "touch/SliderAdapter.h"

#include <algorithm>
#include <cmath>

namespace lumbra {

SliderAdapter::SliderAdapter(std::shared_ptr<Slider> control, const std::string& caption, RefreshQueue& queue,
                             QObject* parent)
    : ControlAdapter(control, caption, queue, parent),
      control_(std::move(control)),
      subscription_(control_->onChange([this] { controlChanged(); })) {
    QObject::connect(this, &Adapter::changed, this, [this] {
        if (!isEnabled())
            cancelGrabs();
    });
}

QString SliderAdapter::reading() const {
    const auto reading = control_->readingOf(shown());
    return reading ? translatedText(reading->text()) : QString();
}

bool SliderAdapter::isHeldBy(const void* holder) const {
    return std::find(holders_.begin(), holders_.end(), holder) != holders_.end();
}

void SliderAdapter::grab(const void* holder) {
    if (!isEnabled() || isHeldBy(holder))
        return;
    holders_.push_back(holder);
    Q_EMIT changed();
}

void SliderAdapter::release(const void* holder) {
    if (std::erase(holders_, holder) == 0)
        return;
    endIfOver();
    Q_EMIT changed();
}

void SliderAdapter::cancelGrabs() {
    if (!isHeld())
        return;
    holders_.clear();
    wish_.reset();
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
    if (!wish_)
        wish_ = {clamped, control_->value(), control_->value()};
    wish_ = {clamped, std::min(wish_->lowest, clamped), std::max(wish_->highest, clamped)};
    send();
    Q_EMIT changed();
    return true;
}

void SliderAdapter::send() {
    control_->slideByUser(wish_->value);
    wait();
}

void SliderAdapter::wait() {
    ++waits_;
    after(HOLD, [this] {
        --waits_;
        endIfOver();
    });
}

void SliderAdapter::controlChanged() {
    if (!wish_ || control_->value() == wish_->value)
        return;
    // What a unit rounds: a level to whole decibels; at 20 Hz half a hertz is 11 units of 3000.
    const float rounding = std::max(1.0F, (control_->maximum() - control_->minimum()) / 250);
    if (control_->value() < wish_->lowest - rounding || control_->value() > wish_->highest + rounding)
        wish_.reset();
    else
        // Further echoes may follow, and would undo what is sent before them.
        wait();
}

void SliderAdapter::endIfOver() {
    if (!wish_ || waits_ > 0 || !holders_.empty())
        return;
    if (control_->value() != wish_->value && !wish_->repeated && isEnabled()) {
        wish_->repeated = true;
        send();
        return;
    }
    wish_.reset();
    Q_EMIT changed();
}

} // namespace lumbra

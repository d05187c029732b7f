#include "app/Hand.h"

#include "screens/ItemViewController.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace lumbra {

static_assert(Hand::HOLD > DEFERRED_STEP, "a hold must outlast the step that sends what it has set");

Hand::Hand(std::shared_ptr<Slider> slider, MainQueue& queue, std::function<bool()> mayMove)
    : slider_(std::move(slider)),
      queue_(queue),
      mayMove_(std::move(mayMove)),
      subscription_(slider_->onChange([this] { sliderChanged(); })) {}

bool Hand::isHeldBy(const void* finger) const {
    return std::find(fingers_.begin(), fingers_.end(), finger) != fingers_.end();
}

bool Hand::grab(const void* finger) {
    if (!mayMove())
        return false;
    if (!isHeldBy(finger)) {
        fingers_.push_back(finger);
        changed_.emit();
    }
    return true;
}

void Hand::release(const void* finger) {
    if (std::erase(fingers_, finger) == 0)
        return;
    endIfOver();
    changed_.emit();
}

void Hand::cancel() {
    if (!isHeld())
        return;
    fingers_.clear();
    wish_.reset();
    changed_.emit();
}

bool Hand::moveTo(float value) {
    if (!mayMove() || !std::isfinite(value))
        return false;
    // Beyond its limit the unit would take the value back.
    const float highest = std::max(slider_->limit().value_or(slider_->maximum()), shown());
    const float clamped = std::clamp(value, slider_->minimum(), highest);
    if (clamped == shown())
        return true;
    if (!wish_)
        wish_ = {clamped, slider_->value(), slider_->value()};
    wish_ = {clamped, std::min(wish_->lowest, clamped), std::max(wish_->highest, clamped)};
    send();
    changed_.emit();
    return true;
}

void Hand::send() {
    slider_->slideByUser(wish_->value);
    wait();
}

void Hand::wait() {
    ++waits_;
    queue_.postAfter(HOLD, life_.guard([this] {
        --waits_;
        endIfOver();
    }));
}

void Hand::sliderChanged() {
    if (!slider_->isEnabled())
        return cancel();
    if (!wish_ || slider_->value() == wish_->value)
        return;
    // What a unit rounds: a level to whole decibels; at 20 Hz half a hertz is 11 units of 3000.
    const float rounding = std::max(1.0F, (slider_->maximum() - slider_->minimum()) / 250);
    if (slider_->value() < wish_->lowest - rounding || slider_->value() > wish_->highest + rounding) {
        wish_.reset();
        changed_.emit();
    } else {
        // Further echoes may follow, and would undo what is sent before them.
        wait();
    }
}

void Hand::endIfOver() {
    if (!wish_ || waits_ > 0 || !fingers_.empty())
        return;
    if (slider_->value() != wish_->value && !wish_->repeated && mayMove()) {
        wish_->repeated = true;
        send();
        return;
    }
    wish_.reset();
    changed_.emit();
}

} // namespace lumbra

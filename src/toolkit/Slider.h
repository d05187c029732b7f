#pragma once

#include "toolkit/Control.h"

#include <algorithm>
#include <cmath>

namespace lumbra {

/// A level between two limits. Values are single precision, finite and always held to the range. A value that is not
/// finite is refused: nothing changes.
class Slider final : public Control {
public:
    static constexpr Kind KIND = Kind::Slider;

    Slider(float minimum, float maximum, float value)
        : Control(KIND), minimum_(minimum), maximum_(maximum), value_(held(value)) {}

    float minimum() const { return minimum_; }
    float maximum() const { return maximum_; }
    float value() const { return value_; }
    void setValue(float value) {
        if (std::isfinite(value))
            change(value_, held(value));
    }

    /// A hand moves the slider to `value`: one value-changed event, also where the value stays the same.
    /// False, and nothing happens, while disabled or where `value` is not finite.
    bool slideByUser(float value) {
        if (!isEnabled() || !std::isfinite(value))
            return false;
        setValue(value);
        valueChanged.send(*this);
        return true;
    }

    TargetAction<Slider> valueChanged;

private:
    float held(float value) const { return std::clamp(value, minimum_, maximum_); }

    float minimum_;
    float maximum_;
    float value_;
};

} // namespace lumbra

#pragma once

#include "toolkit/Control.h"

#include <algorithm>

namespace lumbra {

/// A level between two limits. Values are single precision and always held to the range.
class Slider final : public Control {
public:
    Slider(float minimum, float maximum, float value)
        : Control(Kind::Slider), minimum_(minimum), maximum_(maximum), value_(held(value)) {}

    float minimum() const { return minimum_; }
    float maximum() const { return maximum_; }
    float value() const { return value_; }
    void setValue(float value) { change(value_, held(value)); }

    /// A hand moves the slider to `value`: one value-changed event, also where the value stays the same.
    /// False, and nothing happens, while disabled.
    bool slideByUser(float value) {
        if (!isEnabled())
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

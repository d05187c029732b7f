#pragma once

#include "toolkit/Control.h"
#include "toolkit/Label.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <optional>
#include <utility>

namespace lumbra {

/// A level between two limits, in single precision. A value beyond a limit is clamped to it. A value that is
/// not finite is refused and changes nothing.
class Slider final : public Control {
public:
    static constexpr Kind KIND = Kind::Slider;

    Slider(float minimum, float maximum, float value)
        : Control(KIND), minimum_(minimum), maximum_(maximum), value_(clamped(value)) {}

    float minimum() const { return minimum_; }
    float maximum() const { return maximum_; }
    float value() const { return value_; }
    void setValue(float value) {
        if (std::isfinite(value))
            change(value_, clamped(value));
    }

    /// The user moves the slider to `value`: one value-changed event, even if the value stays the same.
    /// Returns false and does nothing if disabled or if `value` is not finite.
    bool slideByUser(float value) {
        if (!isEnabled() || !std::isfinite(value))
            return false;
        setValue(value);
        valueChanged.send(*this);
        return true;
    }

    /// How the slider's label would show `value`. Nothing if the screen has not set it.
    std::optional<Reading> readingOf(float value) const {
        return reading_ ? std::optional(reading_(value)) : std::nullopt;
    }
    void setReading(std::function<Reading(float)> reading) { reading_ = std::move(reading); }

    /// The highest value that the unit allows, as last reported; nothing for a slider that has no such limit.
    std::optional<float> limit() const { return limit_; }
    void setLimit(float limit) { change(limit_, std::optional(clamped(limit))); }

    TargetAction<Slider> valueChanged;

private:
    float clamped(float value) const { return std::clamp(value, minimum_, maximum_); }

    float minimum_;
    float maximum_;
    float value_;
    std::optional<float> limit_;
    std::function<Reading(float)> reading_;
};

} // namespace lumbra

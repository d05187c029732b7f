#pragma once

#include "toolkit/Control.h"

namespace lumbra {

/// An on/off switch.
class Switch final : public Control {
public:
    static constexpr Kind KIND = Kind::Switch;

    explicit Switch(bool on) : Control(KIND), on_(on) {}

    bool isOn() const { return on_; }
    void setOn(bool on) { change(on_, on); }

    /// The user flips the switch: one value-changed event, or none if it is in that position already. Returns
    /// false and does nothing while disabled.
    bool flipByUser(bool on) {
        if (!isEnabled())
            return false;
        if (on != on_) {
            setOn(on);
            valueChanged.send(*this);
        }
        return true;
    }

    TargetAction<Switch> valueChanged;

private:
    bool on_;
};

} // namespace lumbra

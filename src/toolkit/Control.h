#pragma once

#include "toolkit/Signal.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <utility>

namespace lumbra {

/// Something on a screen that the user can see and, for most kinds, operate. Main thread only.
///
/// The program sets a control through its setters, which send no event. A front end operates it through the
/// members that end in `ByUser`: they refuse a disabled control and send the control's event to its target.
/// Observers are called after every visible change, whoever made it, and only then.
class Control {
public:
    enum class Kind : std::uint8_t { Picker, Slider, Switch, Segmented, Label, ActivityIndicator, Button };

    virtual ~Control() = default;
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    Kind kind() const { return kind_; }

    /// Whether the user can operate the control.
    bool isEnabled() const { return enabled_; }
    void setEnabled(bool enabled) { change(enabled_, enabled); }

    /// Whether the unit has reported the value that is shown; nothing for a control that shows none of its values.
    std::optional<bool> known() const { return known_; }
    void setKnown(bool known) { change(known_, std::optional(known)); }

    /// Calls `observer` after every visible change.
    Subscription onChange(std::function<void()> observer) { return changed_.subscribe(std::move(observer)); }

protected:
    explicit Control(Kind kind) : kind_(kind) {}

    /// Sets `field` and calls the observers if its value differs.
    template <class T>
    void change(T& field, const T& value) {
        if (field == value)
            return;
        field = value;
        changed_.emit();
    }
    void notifyChanged() { changed_.emit(); }

private:
    Kind kind_;
    bool enabled_ = true;
    std::optional<bool> known_;
    Signal<> changed_;
};

/// The target of a control's event. The control does not keep the target alive.
template <class Sender>
class TargetAction {
public:
    /// `action` is a method of the target that takes the control, or a function of the target and the
    /// control.
    template <class Target, class Action>
    void set(std::weak_ptr<Target> target, Action action) {
        action_ = [target = std::move(target), action](Sender& sender) {
            if (const auto alive = target.lock())
                std::invoke(action, *alive, sender);
        };
    }
    void send(Sender& sender) const { action_(sender); }

private:
    std::function<void(Sender&)> action_ = [](Sender&) {};
};

} // namespace lumbra

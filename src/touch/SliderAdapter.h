#pragma once

#include "toolkit/Slider.h"
#include "touch/ControlAdapter.h"

#include <QtQml/qqmlregistration.h>

#include <vector>

namespace lumbra {

/// Exposes a slider to QML. A press or drag grabs the slider: while it is held, it shows the value that the
/// user has set, whatever the program does to the control.
class SliderAdapter final : public lumbra::ControlAdapter {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("a screen gives it")
    Q_PROPERTY(qreal minimum READ minimum CONSTANT)
    Q_PROPERTY(qreal maximum READ maximum CONSTANT)
    Q_PROPERTY(qreal value READ value NOTIFY changed)
    Q_PROPERTY(qreal position READ position NOTIFY changed)
    Q_PROPERTY(bool held READ isHeld NOTIFY changed)

public:
    SliderAdapter(std::shared_ptr<Slider> control, const std::string& caption, RefreshQueue& queue,
                  QObject* parent)
        : ControlAdapter(control, caption, queue, parent), control_(std::move(control)) {}

    qreal minimum() const { return static_cast<qreal>(control_->minimum()); }
    qreal maximum() const { return static_cast<qreal>(control_->maximum()); }
    /// The value shown: the user's while the slider is held, else the control's.
    qreal value() const { return static_cast<qreal>(shown()); }
    /// The same value as a fraction of the range, 0 to 1.
    qreal position() const { return (value() - minimum()) / (maximum() - minimum()); }
    bool isHeld() const { return !holders_.empty(); }
    bool isHeldBy(const void* holder) const;

    /// Begins a grab by `holder`. Several holders may grab it at a time.
    void grab(const void* holder);
    /// Ends the grab by `holder`; does nothing if there is none. At the end of the last grab, if the control
    /// no longer has the value that the user set last, that value is sent once more.
    void release(const void* holder);
    /// Ends all grabs and sends nothing: the slider now belongs to another item or is no longer visible.
    void cancelGrabs();
    /// The user moves the slider to a fraction of its range, clamped to 0 to 1: one event, or none if that is
    /// the value shown. False if the control is disabled.
    Q_INVOKABLE bool moveToPosition(qreal position);
    /// The same by a difference from the value shown, in the units of the control.
    Q_INVOKABLE bool moveBy(qreal difference);
    /// The same to a value in the units of the control.
    Q_INVOKABLE bool moveToValue(qreal value);

private:
    float shown() const { return isHeld() ? heldValue_ : control_->value(); }
    bool moveTo(float value);

    std::shared_ptr<Slider> control_;
    std::vector<const void*> holders_;
    bool moved_ = false;
    float heldValue_ = 0;
};

} // namespace lumbra

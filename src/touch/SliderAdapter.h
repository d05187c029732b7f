#pragma once

#include "toolkit/Slider.h"
#include "touch/ControlAdapter.h"

#include <QtQml/qqmlregistration.h>

#include <vector>

namespace lumbra {

/// Shows a slider to QML. While a hand holds it, it stands where the hand put it, whatever the program does
/// to the control.
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
    /// What is shown: the hand's value while it holds the slider, else the control's.
    qreal value() const { return static_cast<qreal>(shown()); }
    /// The same as a share of the way, 0 to 1.
    qreal position() const { return (value() - minimum()) / (maximum() - minimum()); }
    bool isHeld() const { return !hands_.empty(); }
    bool isHeldBy(const void* hand) const;

    /// A hand takes hold; others may hold it too.
    void grab(const void* hand);
    /// A hand lets go; one that does not hold it changes nothing. What was set last is sent once more by the
    /// last hand if the control stands elsewhere by now.
    void release(const void* hand);
    /// All hands are off, whatever the fingers do, and nothing is sent: what the slider stands for is
    /// another, or is not in sight.
    void dropHands();
    /// The hand moves the slider to a share of the way, held to 0 ... 1: one event, none where it is shown
    /// there already. False where the control is disabled.
    Q_INVOKABLE bool moveToPosition(qreal position);
    /// The same by a difference in the control's own units, from where it is shown.
    Q_INVOKABLE bool moveBy(qreal difference);
    /// The same to a value in the control's own units.
    Q_INVOKABLE bool moveToValue(qreal value);

private:
    float shown() const { return isHeld() ? handValue_ : control_->value(); }
    bool moveTo(float value);

    std::shared_ptr<Slider> control_;
    std::vector<const void*> hands_;
    bool moved_ = false;
    float handValue_ = 0;
};

} // namespace lumbra

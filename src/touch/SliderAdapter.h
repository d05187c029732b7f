#pragma once

#include "app/Hand.h"
#include "toolkit/Slider.h"
#include "touch/ControlAdapter.h"

#include <QtQml/qqmlregistration.h>

#include <algorithm>

namespace lumbra {

/// Exposes a slider and the hand on it to QML: the value shown is the one that the hand has set while it holds the
/// slider, else the slider's. A slider that is not known shows no value unless it is held.
class SliderAdapter final : public lumbra::ControlAdapter {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("a screen gives it")
    Q_PROPERTY(qreal minimum READ minimum CONSTANT)
    Q_PROPERTY(qreal maximum READ maximum CONSTANT)
    Q_PROPERTY(qreal limit READ limit NOTIFY changed)
    Q_PROPERTY(qreal limitPosition READ limitPosition NOTIFY changed)
    Q_PROPERTY(qreal value READ value NOTIFY changed)
    Q_PROPERTY(qreal position READ position NOTIFY changed)
    Q_PROPERTY(qreal zeroPosition READ zeroPosition CONSTANT)
    Q_PROPERTY(QString reading READ reading NOTIFY changed)
    Q_PROPERTY(bool held READ isHeld NOTIFY changed)

public:
    /// `hand` outlives the adapter.
    SliderAdapter(std::shared_ptr<Slider> control, Hand& hand, const std::string& caption,
                  RefreshQueue& queue, QObject* parent);

    Hand& hand() { return hand_; }
    qreal minimum() const { return static_cast<qreal>(control_->minimum()); }
    qreal maximum() const { return static_cast<qreal>(control_->maximum()); }
    /// The highest value that the unit allows, as far as it has told.
    qreal limit() const { return static_cast<qreal>(control_->limit().value_or(control_->maximum())); }
    qreal limitPosition() const { return positionOf(limit()); }
    qreal value() const { return static_cast<qreal>(hand_.shown()); }
    /// The value shown as a fraction of the range, 0 to 1.
    qreal position() const { return positionOf(value()); }
    /// The position of zero, or of the end that is nearest to it.
    qreal zeroPosition() const { return positionOf(std::clamp(0.0, minimum(), maximum())); }
    /// The value at a position.
    qreal valueAt(qreal position) const { return minimum() + position * (maximum() - minimum()); }
    /// The value shown, as the slider's label would have it: "50%", or "Maximum 68%" at the limit. Empty if the screen
    /// has no label for it.
    QString reading() const;
    bool isHeld() const { return hand_.isHeld(); }

    /// The user moves the slider to a fraction of its range, clamped to 0 to 1. False if it can't be moved.
    Q_INVOKABLE bool moveToPosition(qreal position);
    /// The same by a difference from the value shown, in the units of the control.
    Q_INVOKABLE bool moveBy(qreal difference);
    /// The same to a value in the units of the control.
    Q_INVOKABLE bool moveToValue(qreal value);

private:
    qreal positionOf(qreal value) const { return (value - minimum()) / (maximum() - minimum()); }

    std::shared_ptr<Slider> control_;
    Hand& hand_;
    Subscription subscription_;
};

} // namespace lumbra

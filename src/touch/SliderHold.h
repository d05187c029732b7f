#pragma once

#include "touch/SliderAdapter.h"

#include <QObject>
#include <QPointer>
#include <QtQml/qqmlregistration.h>

namespace lumbra {

/// A finger's hold on a slider, from `take` until `end`. It also ends, and then drags nothing until it is
/// taken anew, when another slider is put in its place, when either is destroyed, and when the slider drops
/// its hands.
class SliderHold : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(lumbra::SliderAdapter* slider READ slider WRITE setSlider NOTIFY sliderChanged)

public:
    explicit SliderHold(QObject* parent = nullptr) : QObject(parent) {}
    ~SliderHold() override { end(); }

    SliderAdapter* slider() const { return slider_; }
    void setSlider(SliderAdapter* slider);

    Q_INVOKABLE void take();
    /// The finger lets go. What it set last is sent once more if the control stands elsewhere by now.
    Q_INVOKABLE void end();
    /// The finger moves the slider to a share of the way, held to 0 ... 1: one event, none where it is shown
    /// there already. False where it does not hold the slider or the control is disabled.
    Q_INVOKABLE bool dragToPosition(qreal position);
    /// The same to a value in the control's own units.
    Q_INVOKABLE bool dragToValue(qreal value);

Q_SIGNALS:
    void sliderChanged();

private:
    bool holds() const { return slider_ && slider_->isHeldBy(this); }

    QPointer<SliderAdapter> slider_;
};

} // namespace lumbra

#pragma once

#include "touch/SliderAdapter.h"

#include <QObject>
#include <QPointer>
#include <QtQml/qqmlregistration.h>

namespace lumbra {

/// A grab of a slider by a press or drag, from `begin` to `end`. It also ends when `slider` changes, when
/// either object is destroyed, and when the slider cancels its grabs; drags then do nothing until the next
/// `begin`. Main thread only.
class SliderGrab : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(lumbra::SliderAdapter* slider READ slider WRITE setSlider NOTIFY sliderChanged)

public:
    explicit SliderGrab(QObject* parent = nullptr) : QObject(parent) {}
    ~SliderGrab() override { end(); }

    SliderAdapter* slider() const { return slider_; }
    void setSlider(SliderAdapter* slider);

    /// Does nothing without a slider.
    Q_INVOKABLE void begin();
    /// Ends the grab. If the control no longer has the value that the drag set last, that value is sent once
    /// more.
    Q_INVOKABLE void end();
    /// Moves the slider to a fraction of its range, clamped to 0 to 1: one event, or none if that is the
    /// value shown. Returns false and does nothing outside a grab or if the control is disabled.
    Q_INVOKABLE bool dragToPosition(qreal position);
    /// The same to a value in the units of the control.
    Q_INVOKABLE bool dragToValue(qreal value);

Q_SIGNALS:
    void sliderChanged();

private:
    bool isActive() const { return slider_ && slider_->isHeldBy(this); }

    QPointer<SliderAdapter> slider_;
};

} // namespace lumbra

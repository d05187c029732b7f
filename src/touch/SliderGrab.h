#pragma once

#include "app/Finger.h"
#include "touch/SliderAdapter.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

#include <optional>

namespace lumbra {

/// Exposes a finger on a slider to QML, from `begin` to `end`. It is lifted when `slider` changes, and when either
/// object is destroyed. Main thread only.
class SliderGrab : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(lumbra::SliderAdapter* slider READ slider WRITE setSlider NOTIFY sliderChanged)

public:
    explicit SliderGrab(QObject* parent = nullptr) : QObject(parent) {}

    SliderAdapter* slider() const { return slider_; }
    void setSlider(SliderAdapter* slider);

    /// Does nothing without a slider.
    Q_INVOKABLE void begin();
    Q_INVOKABLE void end();
    /// Drags the slider to a fraction of its range. False without a slider, and as Finger has it.
    Q_INVOKABLE bool dragToPosition(qreal position);
    /// The same to a value in the units of the control.
    Q_INVOKABLE bool dragToValue(qreal value);
    /// The same by a difference from the value shown.
    Q_INVOKABLE bool moveBy(qreal difference);

Q_SIGNALS:
    void sliderChanged();

private:
    SliderAdapter* slider_ = nullptr;
    std::optional<Finger> finger_; ///< where there is a slider
};

} // namespace lumbra

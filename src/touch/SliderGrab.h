#pragma once

#include "touch/SliderAdapter.h"

#include <QObject>
#include <QPointer>
#include <QtQml/qqmlregistration.h>

#include <optional>

namespace lumbra {

/// A grab of a slider by a press or drag, from `begin` to `end`. It also ends when `slider` changes, when
/// either object is destroyed, and when the slider cancels its grabs; drags then do nothing until the next
/// `begin`. Main thread only.
///
/// A drag is relative: if the slider has moved by other means since the last call, such as a report, a drag
/// goes on from where the slider is now.
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
    Q_INVOKABLE void end();
    /// Moves the slider to a fraction of its range, clamped to 0 to 1: one event, or none if that is the
    /// value shown. Returns false and does nothing outside a grab or if the control is disabled.
    Q_INVOKABLE bool dragToPosition(qreal position);
    /// The same to a value in the units of the control.
    Q_INVOKABLE bool dragToValue(qreal value);
    /// The same by a difference from the value shown.
    Q_INVOKABLE bool moveBy(qreal difference);

Q_SIGNALS:
    void sliderChanged();

private:
    /// The last drag: the value that it asked for, and the value that the slider then had.
    struct Drag {
        qreal asked;
        qreal left;
    };

    bool isActive() const { return slider_ && slider_->isHeldBy(this); }

    QPointer<SliderAdapter> slider_;
    std::optional<Drag> last_;
    qreal offset_ = 0; ///< from what a drag asks for to where it leads
};

} // namespace lumbra

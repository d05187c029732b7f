#pragma once

#include "toolkit/Slider.h"
#include "touch/ControlAdapter.h"

#include <QtQml/qqmlregistration.h>

#include <algorithm>
#include <chrono>
#include <optional>
#include <vector>

namespace lumbra {

/// Exposes a slider to QML. While it is held, it shows the value that the user has set. A hold lasts while a
/// finger is down, and after each move until the screen has taken its deferred step and no report has come in
/// for as long.
///
/// A report during a hold whose value is one that the user has passed is taken for the echo of a command: at
/// the end, the user's last value is sent once more if the control has another one by then. Any other report
/// is somebody else's: it is shown at once, nothing is sent after it, and a finger that moves on goes on from
/// there.
class SliderAdapter final : public lumbra::ControlAdapter {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("a screen gives it")
    Q_PROPERTY(qreal minimum READ minimum CONSTANT)
    Q_PROPERTY(qreal maximum READ maximum CONSTANT)
    Q_PROPERTY(qreal value READ value NOTIFY changed)
    Q_PROPERTY(qreal position READ position NOTIFY changed)
    Q_PROPERTY(qreal zeroPosition READ zeroPosition CONSTANT)
    Q_PROPERTY(QString reading READ reading NOTIFY changed)
    Q_PROPERTY(bool held READ isHeld NOTIFY changed)

public:
    /// Longer than the time after which a screen takes its deferred step.
    static constexpr std::chrono::milliseconds HOLD{800};

    SliderAdapter(std::shared_ptr<Slider> control, const std::string& caption, RefreshQueue& queue,
                  QObject* parent);

    qreal minimum() const { return static_cast<qreal>(control_->minimum()); }
    qreal maximum() const { return static_cast<qreal>(control_->maximum()); }
    /// The value shown: the user's while the slider is held, else the control's.
    qreal value() const { return static_cast<qreal>(shown()); }
    /// The same value as a fraction of the range, 0 to 1.
    qreal position() const { return positionOf(value()); }
    /// The position of zero, or of the end that is nearest to it.
    qreal zeroPosition() const { return positionOf(std::clamp(0.0, minimum(), maximum())); }
    /// The value shown, as the slider's label would have it: "50%". Empty if the screen has no label for it.
    QString reading() const;
    bool isHeld() const { return wish_ || !holders_.empty(); }
    bool isHeldBy(const void* holder) const;

    /// Begins a grab by `holder`. Several holders may grab it at a time.
    void grab(const void* holder);
    /// Ends the grab by `holder`; does nothing if there is none.
    void release(const void* holder);
    /// Ends all grabs and the hold, and sends nothing: the slider now belongs to another item, is disabled or
    /// is no longer visible.
    void cancelGrabs();
    /// The user moves the slider to a fraction of its range, clamped to 0 to 1: one event, or none if that is
    /// the value shown. False if the control is disabled.
    Q_INVOKABLE bool moveToPosition(qreal position);
    /// The same by a difference from the value shown, in the units of the control.
    Q_INVOKABLE bool moveBy(qreal difference);
    /// The same to a value in the units of the control.
    Q_INVOKABLE bool moveToValue(qreal value);

private:
    /// What the user has set in this hold.
    struct Wish {
        float value;
        float lowest, highest; ///< of the values passed, with the one at the start
        bool repeated = false; ///< it has been sent once more
    };

    qreal positionOf(qreal value) const { return (value - minimum()) / (maximum() - minimum()); }
    float shown() const { return wish_ ? wish_->value : control_->value(); }
    bool moveTo(float value);
    void send();
    void wait();
    void controlChanged();
    void endIfOver();

    std::shared_ptr<Slider> control_;
    std::vector<const void*> holders_;
    std::optional<Wish> wish_;
    int waits_ = 0; ///< how many moves and echoes are more recent than HOLD
    Subscription subscription_;
};

} // namespace lumbra

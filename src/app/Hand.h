#pragma once

#include "platform/Lifetime.h"
#include "platform/MainQueue.h"
#include "toolkit/Signal.h"
#include "toolkit/Slider.h"

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace lumbra {

/// The user's hand on a slider: what the slider shows while it is held. A hold lasts while a finger is down,
/// and after each move until the screen has taken its deferred step and no report has come in for as long.
///
/// A report during a hold whose value is one that the hand has passed is taken for the echo of a command: at
/// the end, the hand's last value is sent once more if the slider has another one by then. Any other report
/// is somebody else's: it is shown at once, nothing is sent after it, and a finger that moves on goes on from
/// there. Main thread only.
class Hand {
public:
    /// Longer than the time after which a screen takes its deferred step.
    static constexpr std::chrono::milliseconds HOLD{800};

    /// `mayMove` tells whether the slider can be moved now; a disabled one can't in any case. `queue` outlives
    /// the hand.
    Hand(std::shared_ptr<Slider> slider, MainQueue& queue, std::function<bool()> mayMove);
    Hand(const Hand&) = delete;
    Hand& operator=(const Hand&) = delete;

    const Slider& slider() const { return *slider_; }
    /// A hold lasts.
    bool isHeld() const { return wish_ || !fingers_.empty(); }
    bool isHeldBy(const void* finger) const;
    /// The value to show: the one that the hand has set in this hold, else the slider's.
    float shown() const { return wish_ ? wish_->value : slider_->value(); }
    bool mayMove() const { return slider_->isEnabled() && mayMove_(); }
    /// It has stopped at the highest value that the unit allows, which is less than the slider's range.
    bool isAtLimit() const {
        return slider_->limit().value_or(slider_->maximum()) < slider_->maximum() &&
               shown() >= *slider_->limit();
    }

    /// A finger touches the slider. Several may at a time. False if the slider can't be moved.
    bool grab(const void* finger);
    /// It has left; does nothing if it never touched.
    void release(const void* finger);
    /// Takes all fingers off and ends the hold, and sends nothing: the slider now belongs to another item,
    /// can't be moved or is no longer visible.
    void cancel();
    /// Moves the slider to `value`, clamped to its range and to its limit: one event, or none if that is the value
    /// shown. Where the unit has set more than its limit, that is the limit. False if the slider can't be moved or
    /// `value` is not finite.
    bool moveTo(float value);

    /// Calls `observer` when the hold has begun or ended, or has another value.
    Subscription onChange(std::function<void()> observer) { return changed_.subscribe(std::move(observer)); }

private:
    /// What the hand has set in this hold.
    struct Wish {
        float value;
        float lowest, highest; ///< of the values passed, with the one at the start
        bool repeated = false; ///< it has been sent once more
    };

    void send();
    void wait();
    void sliderChanged();
    void endIfOver();

    std::shared_ptr<Slider> slider_;
    MainQueue& queue_;
    std::function<bool()> mayMove_;
    std::vector<const void*> fingers_;
    std::optional<Wish> wish_;
    int waits_ = 0; ///< how many moves and echoes are more recent than HOLD
    Signal<> changed_;
    Subscription subscription_;
    Lifetime life_;
};

} // namespace lumbra

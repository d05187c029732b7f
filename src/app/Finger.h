#pragma once

#include "app/Hand.h"

#include <optional>

namespace lumbra {

/// A finger on a slider, from `press` to `lift`. A press moves nothing, wherever it is. What the finger then does
/// counts only while it is down: once the hand has been cancelled, nothing does until the next press, so a step
/// counts only for a press that has arrived whole. Main thread only.
class Finger {
public:
    /// `hand` outlives the finger.
    explicit Finger(Hand& hand) : hand_(hand) {}
    ~Finger() { lift(); }
    Finger(const Finger&) = delete;
    Finger& operator=(const Finger&) = delete;

    /// False if the slider can't be moved.
    bool press();
    /// Does nothing if the finger is not down.
    void lift() { hand_.release(this); }

    /// Drags the slider to `value`, clamped to its range. A drag is relative: if the slider has moved by other
    /// means since the last call, such as a report, the drag goes on from where it is now. False if the finger
    /// is not down, the slider can't be moved or `value` is not finite.
    bool dragTo(float value);
    /// Moves the slider by a difference from the value shown. False as for `dragTo`.
    bool moveBy(float difference);

private:
    /// The last drag: the value that it asked for, and the value that the slider then had.
    struct Drag {
        float asked;
        float left;
    };

    Hand& hand_;
    std::optional<Drag> last_;
    float offset_ = 0; ///< from what a drag asks for to where it leads
};

} // namespace lumbra

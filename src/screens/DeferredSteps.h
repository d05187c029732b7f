#pragma once

#include "platform/Lifetime.h"
#include "platform/MainQueue.h"
#include "toolkit/Slider.h"
#include "toolkit/View.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <utility>

namespace lumbra {

/// The time between an event of a slider and the deferred step that reads its value.
inline constexpr std::chrono::milliseconds DEFERRED_STEP{750};

/// The deferred steps of a screen's sliders. Each value-changed event schedules one step 0.75 s later, which reads
/// the slider then. Earlier steps are not cancelled: once the slider rests, later steps find nothing to do. No step
/// is taken once this object is gone. Main thread only.
class DeferredSteps {
public:
    /// `queue` outlives this object.
    explicit DeferredSteps(MainQueue& queue) : queue_(queue) {}

    /// Calls `step` with the value that `slider` has in 0.75 s.
    void schedule(const Outlet<Slider>& slider, std::function<void(float value)> step) {
        queue_.postAfter(DEFERRED_STEP,
                         life_.guard([slider, step = std::move(step)] { step(slider->value()); }));
    }

private:
    MainQueue& queue_;
    Lifetime life_;
};

/// A slider's value as a whole number, truncated toward zero.
inline std::int64_t truncated(float value) {
    return static_cast<std::int64_t>(value);
}

/// Stores what a slider has settled on. False if that is stored already: there is nothing to send.
inline bool settle(std::int64_t value, std::int64_t& stored) {
    return std::exchange(stored, value) != value;
}

} // namespace lumbra

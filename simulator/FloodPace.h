#pragma once

#include <algorithm>
#include <chrono>
#include <cstdint>

namespace lumbra::sim {

/// The number of reports of a flood that are due as time passes: `rate` a second on average. Time lost on a
/// busy machine or in a stopped program is not made up for.
class FloodPace {
public:
    static constexpr std::chrono::milliseconds TICK{10};

    explicit FloodPace(std::int64_t rate) : rate_(rate) {}

    /// Returns how many reports are due. `passed` is the time since the last call.
    std::int64_t due(std::chrono::milliseconds passed) {
        thousandths_ += rate_ * std::min(passed, 2 * TICK).count();
        const std::int64_t count = thousandths_ / 1000;
        thousandths_ %= 1000;
        return count;
    }

private:
    std::int64_t rate_;
    std::int64_t thousandths_ = 0; ///< of a report
};

} // namespace lumbra::sim

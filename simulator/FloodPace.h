#pragma once

#include <algorithm>
#include <chrono>
#include <cstdint>

namespace lumbra::sim {

/// How many reports of a flood are due as time passes: `rate` a second on average. Time that a busy machine
/// or a stopped program loses is not made up for.
class FloodPace {
public:
    static constexpr std::chrono::milliseconds TICK{10};

    explicit FloodPace(std::int64_t rate) : rate_(rate) {}

    /// The reports that are due, `passed` after the call before.
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

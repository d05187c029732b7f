#pragma once

#include "toolkit/Control.h"

namespace lumbra {

/// Shows that something is awaited: it turns while it animates.
class ActivityIndicator final : public Control {
public:
    static constexpr Kind KIND = Kind::ActivityIndicator;

    ActivityIndicator() : Control(KIND) {}

    bool isAnimating() const { return animating_; }
    void startAnimating() { change(animating_, true); }
    void stopAnimating() { change(animating_, false); }

private:
    bool animating_ = false;
};

} // namespace lumbra

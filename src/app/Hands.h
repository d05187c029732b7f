#pragma once

#include "app/Hand.h"
#include "link/ServerConnection.h"
#include "toolkit/Control.h"
#include "toolkit/Slider.h"

#include <map>
#include <memory>

namespace lumbra {

/// The hands on the sliders of all screens and rows, one for each slider, and what can be moved at all. While
/// the link is not open, what would send a command is locked, because the command would be lost. Main thread only.
class Hands {
public:
    /// Both outlive this object.
    Hands(ServerConnection& link, MainQueue& queue);

    /// The hand on a slider that sends commands. It lives as long as this object.
    Hand& on(const std::shared_ptr<Slider>& slider);
    /// The same, or null if the slider has never been touched.
    Hand* find(const Control& slider);

private:
    ServerConnection& link_;
    MainQueue& queue_;
    std::map<const Control*, std::unique_ptr<Hand>> hands_;
    Subscription links_;
};

} // namespace lumbra

#pragma once

#include "Remote.h"

namespace lumbra {

/// What must hold of the application at every moment, whatever the unit and the hand do: the sentence that
/// does not hold, or an empty text.
inline std::string brokenInvariant(Remote& remote) {
    if (remote.streams.liveStreams() > 2)
        return "more than one pair of streams is alive";
    const auto screen = remote.application.tabs().selectedViewController();
    const auto* items = remote.application.items();
    for (std::size_t row = 0; items && row < items->rowCount(); ++row)
        if (const auto item = items->row(row); item.volume < -80 || item.volume > 0)
            return item.name + " has a volume out of range";
    for (const auto& item : screen->view().items()) {
        const auto* slider = dynamic_cast<Slider*>(item.control.get());
        const auto* picker = dynamic_cast<Picker*>(item.control.get());
        if ((slider && (slider->value() < slider->minimum() || slider->value() > slider->maximum())) ||
            (picker && (picker->selected() >= static_cast<int>(picker->rows().size()) ||
                        (picker->selected() < 0) != picker->rows().empty())))
            return item.name + " stands where it can't";
    }
    return {};
}

} // namespace lumbra

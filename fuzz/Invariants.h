#pragma once

#include "Remote.h"
#include "screens/GroupViewController.h"
#include "screens/OutputViewController.h"
#include "screens/ZoneViewController.h"

namespace lumbra {

template <class Fields>
bool isWithin(const Fields& fields, std::int64_t low, std::int64_t high) {
    return std::all_of(fields.begin(), fields.end(),
                       [&](std::int64_t field) { return low <= field && field <= high; });
}

/// What must hold of the application at every moment, whatever the unit and the hand do: the sentence that
/// does not hold, or an empty text.
inline std::string brokenInvariant(Remote& remote) {
    if (remote.streams.liveStreams() > 2)
        return "more than one pair of streams is alive";
    const auto screen = remote.application.tabs().selectedViewController();
    if (const auto* zoneScreen = dynamic_cast<ZoneViewController*>(screen.get())) {
        const auto& zones = zoneScreen->zone();
        if (!isWithin(zones.bass, -15, 15) || !isWithin(zones.treble, -15, 15) ||
            !isWithin(zones.volume, -80, 0) || !isWithin(zones.max_volume, -80, 0) ||
            !isWithin(zones.source, 0, 19))
            return "a zone is out of range";
        if (zones.name_hide_ref.size() != zones.name_hide_str.size() ||
            !std::is_sorted(zones.name_hide_ref.begin(), zones.name_hide_ref.end()))
            return "the rows of the zone picker are out of step";
    } else if (const auto* outputScreen = dynamic_cast<OutputViewController*>(screen.get())) {
        const auto& outputs = outputScreen->output();
        if (!isWithin(outputs.volume, -80, 0) || !isWithin(outputs.source, 0, 19))
            return "an output's volume or input is out of range";
        for (std::size_t output = 0; output < outputs.filter_freq.size(); ++output)
            if (!isWithin(outputs.filter_freq[output], 1, 20000) ||
                !isWithin(outputs.filter_gain[output], -15, 15) ||
                !isWithin(outputs.filter_type[output], 0, 5))
                return "an output's band is out of range";
    } else if (const auto* groupScreen = dynamic_cast<GroupViewController*>(screen.get())) {
        if (!isWithin(groupScreen->group().volume, -80, 0) || !isWithin(groupScreen->group().source, 0, 19))
            return "a group's volume or input is out of range";
    }
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

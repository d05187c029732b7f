#pragma once

#include "model/Zones.h"
#include "protocol/ZoneMessages.h"
#include "screens/ItemViewController.h"

#include <cstdint>
#include <string>

namespace lumbra {

/// The Zone screen: one of the unit's zones with its input, volume, mute, loudness, bass and treble. Main
/// thread only.
class ZoneViewController final : public ItemViewController {
public:
    static constexpr int QUERY_NUMBER = 0;

    ZoneViewController(const ScreenContext& context, std::shared_ptr<View> view);

    void viewDidLoad() override;
    void bassSliderChange(Slider& sender);
    void trebleSliderChange(Slider& sender);
    void loudnessSwitchChange(Switch& sender);

protected:
    void processCommand(std::string_view report) override;
    void showItem() override;

private:
    using ItemViewController::handle;
    void handle(const reports::MaxVolume& report);
    void handle(const zones::Loudness& report);
    void handle(const zones::Bass& report);
    void handle(const zones::Treble& report);
    void handle(const zones::OutputAssignment& report);

    /// Bass or treble.
    struct Tone {
        Outlet<Slider> slider;
        Outlet<Label> label;
        Zones::PerZone<std::int64_t>& level;
        bool ItemTold::*known;
        std::string (*command)(std::int64_t zone, std::int64_t level);
    };

    void showLoudness();
    void toneSliderChange(Tone& tone);
    void toneReported(Tone& tone, int zone, int level);
    void showTone(Tone& tone);

    Zones& zone_;
    Outlet<Switch> loudnessSwitch_;
    Tone bass_;
    Tone treble_;
};

} // namespace lumbra

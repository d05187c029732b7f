#pragma once

#include "model/Outputs.h"
#include "protocol/OutputMessages.h"
#include "screens/ItemViewController.h"
#include "toolkit/SegmentedControl.h"

#include <cstddef>
#include <cstdint>

namespace lumbra {

/// The Output screen: one of the unit's outputs with its input, volume, mute, power and seven-band equaliser.
/// Main thread only.
class OutputViewController final : public ItemViewController {
public:
    static constexpr int QUERY_NUMBER = 1;

    OutputViewController(const ScreenContext& context, std::shared_ptr<View> view);

    void viewDidLoad() override;
    // The band is 0-based.
    void filterTypeChange(std::size_t band);
    void filterFreqChange(std::size_t band);
    void filterGainChange(std::size_t band);

protected:
    void processCommand(std::string_view report) override;
    void showItem() override;
    void showRow(std::int64_t item) override;

private:
    using ItemViewController::handle;
    void handle(const reports::Power& report);
    void handle(const outputs::Band& report);
    void handle(const reports::MaxVolume& report);
    void handle(const outputs::MaxTurnOnVolume& report);
    void handle(const outputs::MinTurnOnVolume& report);
    void handle(const outputs::Stereo& report);

    /// True if `item` is an output and `level` (dB) is allowed as one of its limits.
    bool isLimit(int item, int level) const;
    /// A row's mute can't be flipped while the output is off, nor, if it is current, while the card's can't.
    void enableRowMute(std::int64_t item);
    /// Shows the type of a band of the current output, and enables the sliders that the type has.
    void showType(std::size_t band);
    /// What a band is brought back to after a bypass lasts as long as the screen.
    void remember(std::int64_t output, std::size_t band, FilterType type);
    void showFormer(std::size_t band);
    void showFrequency(std::size_t band);
    void showKnown(std::size_t band);
    /// Sends the complete setting of a band of the current output.
    void sendFilterCommand(std::size_t band);

    template <class Control>
    using PerBand = Outputs::PerBand<Outlet<Control>>;

    Outputs& output_;
    PerBand<SegmentedControl> filterType_;
    PerBand<Slider> filterFreq_;
    PerBand<Slider> filterGain_;
    PerBand<Label> filterFreqLabel_;
    PerBand<Label> filterGainLabel_;
};

} // namespace lumbra

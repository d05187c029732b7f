#pragma once

#include "simulator/House.h"
#include "simulator/UnitState.h"

#include <array>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace lumbra::sim {

/// Writes the state of a unit as reports, in the order in which a remote must receive them. Collects whole
/// reports as sent, parentheses included.
class ReportWriter {
public:
    /// `house` outlives the writer.
    ReportWriter(int unit, const House& house) : unit_(unit), house_(house) {}

    /// These report the differences between `told`, which is what clients were told last, and `now`. To a
    /// client a volume report also means "not muted", and a power-on report also moves the volume into the
    /// turn-on range. So a power-on is followed by the volume, and a volume by "muted" if that is the case.
    void zones(const Setting& told, const Setting& now);
    void outputs(const Setting& told, const Setting& now);
    void groups(const Setting& told, const Setting& now);
    void overrides(const std::array<int, OVERRIDES>& told, const std::array<int, OVERRIDES>& now);

    /// The configuration by the installer. Limits come before the volumes that must respect them.
    void assignments();
    void inputs();
    void zoneFacts();
    void outputFacts();
    void groupNames();
    void sceneNames();

    /// The end mark of the answer to state query `query`.
    void endOfAnswer(int query);

    std::vector<std::string> take() { return std::move(reports_); }

private:
    template <typename Item>
    void volumeAndMute(std::string_view family, int number, const Item& told, const Item& now, bool always);
    void field(std::string_view family, int number, std::string_view code, int told, int now);
    void value(std::string_view family, int number, std::string_view code, int value);
    void name(std::string_view family, int number, const std::string& name);
    void band(int output, int number, const Band& band);
    void add(std::string_view text);

    int unit_;
    const House& house_;
    std::vector<std::string> reports_;
};

} // namespace lumbra::sim

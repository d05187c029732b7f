#pragma once

#include "toolkit/Control.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace lumbra {

/// A row of segments, one of them selected. Segments are numbered from 0.
class SegmentedControl final : public Control {
public:
    static constexpr Kind KIND = Kind::Segmented;

    SegmentedControl(std::vector<std::string> segments, int selected)
        : Control(KIND), segments_(std::move(segments)), selected_(selected) {}

    const std::vector<std::string>& segments() const { return segments_; }
    int selected() const { return selected_; }
    void setSelected(int segment) {
        if (has(segment))
            change(selected_, segment);
    }

    /// The user taps a segment: one value-changed event, or none if it is selected already. Returns false and
    /// does nothing if disabled or if there is no such segment.
    bool tapByUser(int segment) {
        if (!isEnabled() || !has(segment))
            return false;
        if (segment != selected_) {
            setSelected(segment);
            valueChanged.send(*this);
        }
        return true;
    }

    /// The segment that was selected before the present one took its place for a while; nothing if there is none. Set it
    /// before the selection: it is announced with that.
    std::optional<int> former() const { return former_; }
    void setFormer(std::optional<int> segment) { former_ = segment; }

    TargetAction<SegmentedControl> valueChanged;

private:
    bool has(int segment) const { return segment >= 0 && segment < static_cast<int>(segments_.size()); }

    std::vector<std::string> segments_;
    int selected_;
    std::optional<int> former_;
};

} // namespace lumbra

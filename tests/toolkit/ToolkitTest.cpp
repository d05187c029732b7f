#include "toolkit/Picker.h"
#include "toolkit/SegmentedControl.h"
#include "toolkit/Slider.h"

#include <gtest/gtest.h>

#include <cmath>

namespace lumbra::test {

// What no person and no report asks for must not move a control either: no number, no row, no segment.
TEST(Controls, HoldTheirRange) {
    Slider slider(-80, 0, -40);
    for (const float none : {std::nanf(""), std::numeric_limits<float>::infinity()}) {
        EXPECT_FALSE(slider.slideByUser(none));
        slider.setValue(none);
    }
    EXPECT_EQ(slider.value(), -40);
    slider.setValue(5);
    EXPECT_EQ(slider.value(), 0);
    SegmentedControl segments({"a", "b"}, 0);
    EXPECT_FALSE(segments.tapByUser(2));
    segments.setSelected(-1);
    EXPECT_EQ(segments.selected(), 0);
    std::vector<std::string> rows;
    Picker picker;
    for (const auto& [count, wanted, selected] :
         {std::tuple(3U, 2, 2), std::tuple(3U, 3, 2), std::tuple(2U, -1, 1), std::tuple(0U, 0, -1)}) {
        rows.resize(count);
        picker.setRows(rows);
        picker.selectRow(wanted);
        EXPECT_EQ(picker.selected(), selected) << count << " rows";
        EXPECT_FALSE(picker.pickByUser(static_cast<int>(count)));
    }
}

TEST(SignalTest, ObserversComeAndGoDuringAnEmission) {
    Signal<> signal;
    std::string told;
    Subscription second, third;
    const auto first = signal.subscribe([&] {
        told += '1';
        second = Subscription();
        third = signal.subscribe([&] { told += '3'; });
    });
    second = signal.subscribe([&] { told += '2'; });
    signal.emit();
    EXPECT_EQ(told, "1");
    signal.emit();
    EXPECT_EQ(told.substr(0, 2), "11");
}

} // namespace lumbra::test

#include "toolkit/NotificationCenter.h"
#include "toolkit/Picker.h"
#include "toolkit/SegmentedControl.h"
#include "toolkit/Slider.h"
#include "toolkit/Switch.h"
#include "toolkit/TabBarController.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

namespace lumbra {
namespace {

/// Counts the events of all kinds of controls, and is a picker's data source.
struct Target final : PickerDataSource, PickerDelegate {
    int events = 0;
    std::vector<std::string> data;
    template <class Sender>
    void act(Sender&) {
        ++events;
    }
    void didSelectRow(Picker&, int) override { ++events; }
    int numberOfRows(const Picker&) const override { return static_cast<int>(data.size()); }
    std::string_view titleForRow(const Picker&, int row) const override {
        return data[static_cast<std::size_t>(row)];
    }
    AttributedText attributedTitleForRow(const Picker& picker, int row) const override {
        return {titleForRow(picker, row), Color::White};
    }
};

class Controls : public testing::Test {
protected:
    std::shared_ptr<Target> target = std::make_shared<Target>();
    int changes = 0;
    Subscription observe(Control& control) {
        return control.onChange([this] { ++changes; });
    }
    /// What the target and the observers were told since the last call.
    void expect(int events, int seen) {
        EXPECT_EQ(std::exchange(target->events, 0), events);
        EXPECT_EQ(std::exchange(changes, 0), seen);
    }
};

TEST_F(Controls, SliderHoldsItsRangeAndTellsEachMove) {
    Slider slider(-80, 0, -40);
    slider.valueChanged.set(std::weak_ptr(target), &Target::act<Slider>);
    const auto subscription = observe(slider);
    slider.setValue(5);
    EXPECT_EQ(slider.value(), 0);
    expect(0, 1);
    EXPECT_TRUE(slider.slideByUser(-90));
    EXPECT_TRUE(slider.slideByUser(-80));
    expect(2, 1);
    for (const float none : {std::nanf(""), std::numeric_limits<float>::infinity()}) {
        EXPECT_FALSE(slider.slideByUser(none));
        slider.setValue(none);
    }
    EXPECT_EQ(slider.value(), -80);
    expect(0, 0);
    slider.setEnabled(false);
    EXPECT_FALSE(slider.slideByUser(-10));
    expect(0, 1);
    target.reset();
    slider.setEnabled(true);
    EXPECT_TRUE(slider.slideByUser(-10)) << "a target that is gone is no fault";
}

TEST_F(Controls, SwitchAndSegmentsSendNothingWhereTheyStandAlready) {
    Switch onOff(false);
    onOff.valueChanged.set(std::weak_ptr(target), &Target::act<Switch>);
    SegmentedControl segments({"a", "b"}, 0);
    segments.valueChanged.set(std::weak_ptr(target), &Target::act<SegmentedControl>);
    EXPECT_TRUE(onOff.flipByUser(false) && segments.tapByUser(0));
    expect(0, 0);
    EXPECT_TRUE(onOff.flipByUser(true) && segments.tapByUser(1));
    expect(2, 0);
    onOff.setOn(false);
    EXPECT_FALSE(segments.tapByUser(2));
    segments.setSelected(-1);
    EXPECT_EQ(segments.selected(), 1);
    expect(0, 0);
}

TEST_F(Controls, PickerFollowsItsData) {
    Picker picker;
    const auto subscription = observe(picker);
    target->data = {"a", "b", "c"};
    picker.setDelegate(target);
    picker.setDataSource(target);
    picker.reloadAllComponents();
    EXPECT_EQ(picker.selected(), 0);
    expect(0, 1);
    EXPECT_TRUE(picker.pickByUser(2));
    EXPECT_TRUE(picker.pickByUser(2)) << "picking the selected row is a pick too";
    EXPECT_FALSE(picker.pickByUser(3));
    expect(2, 1);
    picker.selectRow(-1);
    picker.selectRow(3);
    EXPECT_EQ(picker.selected(), 2);
    target->data = {"a", "x"};
    picker.reloadAllComponents();
    EXPECT_EQ(picker.selected(), 1) << "the last row";
    target->data.clear();
    picker.reloadAllComponents();
    EXPECT_FALSE(picker.pickByUser(0));
    EXPECT_EQ(picker.selected(), -1);
    expect(0, 2);
}

TEST(SignalTest, ObserversComeAndGoDuringAnEmission) {
    Signal<> signal;
    std::string told;
    Subscription second;
    Subscription third;
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

struct Page final : ViewController {
    Page(const char* name, std::string& calls)
        : ViewController(std::make_shared<View>(name, name)), log(calls) {}
    std::string& log;
    void viewDidLoad() override { log += view().name() + "Load "; }
    void viewWillAppear() override { log += view().name() + "Will "; }
    void viewWillDisappear() override { log += view().name() + "Leave "; }
};

TEST(TabBarControllerTest, TellsAppearancesInOrder) {
    std::string log;
    const auto a = std::make_shared<Page>("a", log);
    const auto b = std::make_shared<Page>("b", log);
    const auto c = std::make_shared<Page>("c", log);
    TabBarController tabs;
    tabs.setViewControllers({a, b});
    tabs.setSelectedIndex(1);
    EXPECT_EQ(log, "") << "nothing appears before the window";
    tabs.viewWillAppear();
    EXPECT_TRUE(tabs.selectByUser(0) && tabs.selectByUser(0));
    EXPECT_EQ(std::exchange(log, ""), "bLoad bWill aLoad aWill bLeave ") << "nothing appears again";
    EXPECT_FALSE(tabs.selectByUser(2));
    tabs.setSelectedIndex(-1);
    tabs.setViewControllers({c, b});
    tabs.setViewControllers({c, b, a});
    EXPECT_EQ(std::exchange(log, ""), "cLoad cWill aLeave ") << "the position stays, its screen is exchanged";
    tabs.setSelectedIndex(1);
    tabs.setViewControllers({c});
    EXPECT_EQ(log, "bWill cLeave cWill bLeave ") << "loaded once";
    EXPECT_EQ(tabs.selectedIndex(), 0);
}

struct Observer {
    NotificationCenter& center;
    int told = 0;
    void hear() {
        ++told;
        center.removeObserver(this);
    }
};

TEST(NotificationCenterTest, ObserversMayLeaveWhileTheyAreTold) {
    NotificationCenter center;
    const auto first = std::make_shared<Observer>(Observer{center});
    const auto second = std::make_shared<Observer>(Observer{center});
    for (const auto& observer : {first, second})
        center.addObserver(observer, Notification::ApplicationDidBecomeActive, &Observer::hear);
    for (int time = 0; time < 2; ++time)
        center.post(Notification::ApplicationDidBecomeActive);
    EXPECT_EQ(first->told + 10 * second->told, 11);
}

} // namespace
} // namespace lumbra

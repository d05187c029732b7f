#include "toolkit/Alert.h"
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
    EXPECT_EQ(slider.value(), -80);
    expect(1, 1);
    EXPECT_TRUE(slider.slideByUser(-80));
    expect(1, 0);
    for (const float none : {std::nanf(""), std::numeric_limits<float>::infinity()}) {
        EXPECT_FALSE(slider.slideByUser(none));
        slider.setValue(none);
        EXPECT_EQ(slider.value(), -80);
    }
    expect(0, 0);
    slider.setEnabled(false);
    expect(0, 1);
    EXPECT_FALSE(slider.slideByUser(-10));
    expect(0, 0);
    target.reset();
    slider.setEnabled(true);
    EXPECT_TRUE(slider.slideByUser(-10)) << "a target that is gone is no fault";
}

TEST_F(Controls, SwitchAndSegmentsSendNothingWhereTheyStandAlready) {
    Switch onOff(false);
    onOff.valueChanged.set(std::weak_ptr(target), &Target::act<Switch>);
    EXPECT_TRUE(onOff.flipByUser(false));
    expect(0, 0);
    EXPECT_TRUE(onOff.flipByUser(true));
    expect(1, 0);
    onOff.setOn(false);
    expect(0, 0);
    SegmentedControl segments({"a", "b"}, 0);
    segments.valueChanged.set(std::weak_ptr(target), &Target::act<SegmentedControl>);
    EXPECT_TRUE(segments.tapByUser(0));
    expect(0, 0);
    EXPECT_TRUE(segments.tapByUser(1));
    expect(1, 0);
    EXPECT_FALSE(segments.tapByUser(2));
    segments.setSelected(-1);
    EXPECT_EQ(segments.selected(), 1);
}

TEST_F(Controls, PickerFollowsItsData) {
    Picker picker;
    const auto subscription = observe(picker);
    EXPECT_EQ(picker.selected(), -1);
    target->data = {"a", "b", "c"};
    picker.setDelegate(target);
    picker.setDataSource(target);
    EXPECT_EQ(picker.selected(), 0);
    expect(0, 1);
    picker.reloadAllComponents();
    expect(0, 0);
    EXPECT_TRUE(picker.pickByUser(2));
    expect(1, 1);
    EXPECT_TRUE(picker.pickByUser(2)) << "picking the selected row is a pick too";
    expect(1, 0);
    EXPECT_FALSE(picker.pickByUser(3));
    picker.selectRow(-1);
    picker.selectRow(3);
    EXPECT_EQ(picker.selected(), 2);
    target->data = {"a", "x"};
    picker.reloadAllComponents();
    EXPECT_EQ(picker.selected(), 1) << "the last row";
    target->data.clear();
    picker.reloadAllComponents();
    EXPECT_EQ(picker.selected(), -1);
    picker.selectRow(0);
    EXPECT_FALSE(picker.pickByUser(0));
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
    Page(const std::string& name, std::string& calls)
        : ViewController(std::make_shared<View>(name, name)), log(calls) {}
    std::string& log;
    void note(const char* what) { log += view().name() + what + " "; }
    void viewDidLoad() override { note("Load"); }
    void viewWillAppear() override { note("Will"); }
    void viewWillDisappear() override { note("Leave"); }
};

struct Tabs final : TabBarController {
    int selections = 0;
    void didSelectViewController() override { ++selections; }
};

TEST(TabBarControllerTest, TellsAppearancesInOrder) {
    std::string log;
    const auto a = std::make_shared<Page>("a", log);
    const auto b = std::make_shared<Page>("b", log);
    const auto c = std::make_shared<Page>("c", log);
    const auto tabs = std::make_shared<Tabs>();
    tabs->setViewControllers({a, b});
    tabs->setSelectedIndex(1);
    EXPECT_EQ(log, "") << "nothing appears before the window";
    tabs->viewWillAppear();
    const auto took = [&log] { return std::exchange(log, ""); };
    EXPECT_EQ(took(), "bLoad bWill ");
    EXPECT_TRUE(tabs->selectByUser(0));
    EXPECT_EQ(took(), "aLoad aWill bLeave ");
    EXPECT_TRUE(tabs->selectByUser(0));
    EXPECT_EQ(took(), "") << "nothing appears again";
    EXPECT_EQ(tabs->selections, 2);
    EXPECT_FALSE(tabs->selectByUser(2));
    tabs->setSelectedIndex(-1);
    EXPECT_EQ(tabs->selectedIndex(), 0);
    tabs->setViewControllers({c, b});
    EXPECT_EQ(took(), "cLoad cWill aLeave ") << "the position stays, its screen is exchanged";
    tabs->setSelectedIndex(1);
    EXPECT_EQ(took(), "bWill cLeave ") << "loaded once";
    tabs->setViewControllers({c});
    EXPECT_EQ(tabs->selectedIndex(), 0);
    EXPECT_EQ(tabs->selections, 2) << "a program's selection is not told";
}

struct Observer {
    int told = 0;
    NotificationCenter* center = nullptr;
    void hear() {
        ++told;
        center->removeObserver(this);
    }
};

TEST(NotificationCenterTest, ObserverMayLeaveWhileItIsTold) {
    NotificationCenter center;
    const auto first = std::make_shared<Observer>();
    auto second = std::make_shared<Observer>();
    first->center = second->center = &center;
    center.addObserver(first, Notification::ApplicationDidBecomeActive, &Observer::hear);
    center.addObserver(second, Notification::ApplicationDidBecomeActive, &Observer::hear);
    center.post(Notification::ApplicationDidBecomeActive);
    center.post(Notification::ApplicationDidBecomeActive);
    EXPECT_EQ(first->told, 1);
    EXPECT_EQ(second->told, 1);
}

} // namespace
} // namespace lumbra

#include "Remote.h"

#include <gtest/gtest.h>

namespace lumbra::test {

/// The hands of an application that is launched and connected.
class Hands : public testing::Test {
protected:
    Remote remote;

    void SetUp() override { remote.launch(); }
};

// A hand and the unit on one slider.
TEST_F(Hands, EndWithTheUsersValueOrWithSomebodyElses) {
    const Scenario scenarios[] = {
        {"a key", "nudge volumeSlider 11 ; hand volumeSlider -29 held ; wait 5 ; hand volumeSlider -29 ; "
                  "sent [U1Z1V-29]"},
        {"the echo of an earlier step", R"(
            nudge volumeSlider 11 ; wait 0.1 ; > U1Z1V-35 ; hand volumeSlider -29 held ; wait 5 ; sent [U1Z1V-29])"},
        {"of the value at the start", R"(
            nudge volumeSlider -3 ; nudge volumeSlider 8 ; wait 0.1 ; > U1Z1V-40 ; > U1Z1V-43
            hand volumeSlider -35 held ; wait 5 ; sent [U1Z1V-35])"},
        {"somebody turns it down", R"(
            nudge volumeSlider 11 ; wait 0.1 ; > U1Z1V-60 ; hand volumeSlider -60 ; wait 5 ; sent)"},
        {"or up", "nudge volumeSlider 11 ; wait 0.1 ; > U1Z1V-20 ; hand volumeSlider -20 ; wait 5 ; sent"},
        {"after that a key counts from there, and an echo is one of there", R"(
            nudge volumeSlider 11 ; wait 0.1 ; > U1Z1V-60 ; nudge volumeSlider 9 ; nudge volumeSlider 1 ; > U1Z1V-51
            hand volumeSlider -50 held ; wait 5 ; hand volumeSlider -50 ; sent [U1Z1V-50])"},
        {"a finger that rests", R"(
            touch volumeSlider ; > U1Z1V-60 ; lift ; hand volumeSlider -60 ; wait 5 ; sent)"},
        {"that moved long ago", R"(
            touch volumeSlider ; drag -29.5 ; wait 1 ; > U1Z1V-35 ; lift ; hand volumeSlider -29.5 held
            wait 5 ; sent [U1Z1V-29] [U1Z1V-29])"},
        {"a level that the unit rounds", R"(
            touch volumeSlider ; drag -29.5 ; wait 1 ; > U1Z1V-29 ; lift ; hand volumeSlider -29.5 held ; wait 5 ; sent [U1Z1V-29])"},
        {"turned down under a finger, which moves on from there", R"(
            touch volumeSlider ; drag -40 ; drag -29 ; > U1Z1V-60 ; hand volumeSlider -60 held ; drag -28
            lift ; hand volumeSlider -59 held ; wait 5 ; hand volumeSlider -59 ; sent [U1Z1V-59])"},
        {"a unit that allows no more is asked twice", R"(
            nudge volumeSlider 1 ; wait 0.1 ; nudge volumeSlider 29 ; wait 0.7 ; > U1Z1V-20 ; wait 0.9
            hand volumeSlider -10 held ; wait 5 ; sent [U1Z1V-10] [U1Z1V-10])"},
        {"and has the last word", R"(
            nudge volumeSlider 1 ; wait 0.1 ; nudge volumeSlider 29 ; wait 0.7 ; > U1Z1V-20 ; wait 0.9
            > U1Z1V-20 ; wait 1 ; hand volumeSlider -20 ; wait 5)"},
        {"a hand that is taken off",
         "nudge volumeSlider 11 ; > U1Z1V-35 ; off ; hand volumeSlider -35 ; wait 5 ; sent"},
        {"a finger that was not put down, and a track without a width", R"(
            touch volumeSlider ; drag nan ; lift ; drag -30 ; hand volumeSlider -40 ; wait 5 ; sent)"},
        {"the rounding of low frequencies", R"(
            set advanced_mode_preference true ; away ; back ; connect ; > U1O1B1P0F30 ; sent [U1SERIAL0] [U1APPQ1]
            nudge filterFreq1 -167.5 ; wait 0.1 ; > U1O1B1P0F20 ; wait 0.1 ; hand filterFreq1 1309.6212 held)"},
        {"a filter that is bypassed", R"(
            set advanced_mode_preference true ; away ; back ; connect ; > U1O1B1P0F1000 ; sent [U1SERIAL0] [U1APPQ1]
            nudge filterFreq1 300 ; wait 0.1 ; > U1O1B1P0F1000 ; > U1O1B1BYPASS ; hand filterFreq1 3000 ; wait 5 ; sent)"},
    };
    EXPECT_EQ(playAll(scenarios, "connect ; > U1Z1V-40"), "");
}

// Fifteen presses of a key, and a unit whose answers come as late as the network brings them.
TEST_F(Hands, OnASlowNetworkTheLastValueArrives) {
    auto& hand = remote.hand("volumeSlider");
    for (const int late : {0, 50, 110, 290, 760, 1000, 3000})
        for (const int pause : {30, 100, 130, 400}) {
            ASSERT_EQ(remote.play("> U1Z1V-40 ; wait 5"), "");
            std::multimap<int, std::string> answers;
            std::string last;
            for (int time = 0; time < 15'000; time += 10) {
                if (time % pause == 0 && time < 15 * pause)
                    hand.moveTo(hand.shown() + 1);
                remote.queue.advance(std::chrono::milliseconds(10));
                for (const auto& command : remote.sent())
                    answers.emplace(time + late, last = command.substr(1, command.size() - 2));
                for (; !answers.empty() && answers.begin()->first <= time; answers.erase(answers.begin()))
                    remote.report(answers.begin()->second);
            }
            EXPECT_EQ(last, "U1Z1V-25") << late << " " << pause;
            EXPECT_EQ(hand.shown(), -25) << late << " " << pause;
        }
}

TEST_F(Hands, TwoFingersMoveOneSlider) {
    auto& hand = remote.hand("volumeSlider");
    auto one = std::make_unique<Finger>(hand);
    Finger other(hand);
    for (auto* const each : {one.get(), &other})
        EXPECT_TRUE(each->press() && each->dragTo(-40));
    EXPECT_TRUE(one->dragTo(-30) && other.dragTo(-35));
    EXPECT_EQ(hand.shown(), -25) << "both move it";
    one.reset();
    EXPECT_TRUE(hand.isHeld()) << "the other one stays";
    other.lift();
    EXPECT_EQ(remote.play("wait 2\nsent [U1Z1V-25]"), "");
}

// A finger on the screen's volume, and one on that of the second row.
TEST_F(Hands, AreTakenOffWhatMayBeSomethingElse) {
    // What happens, and which of the two stays.
    const char* const cases[][2] = {
        {"pick zonePicker 1", "row"},
        {"> U1Z1N\"Attic\"", "row"},
        {"> U1Z3N\"Attic\"", "screen"},
        {"> U1O2Z2", "screen"}, // a row is inserted above it
        {"> U1O4Z4 ; > U1Z4N\"Bath\" ; > U1I2N\"Tuner\" ; > U1Z3V-30 ; tab zone", "screen row"},
        {"tab group ; tab zone", ""},
        {"end", ""},
        {"resign", ""},
    };
    for (const auto& [happens, stays] : cases) {
        Remote fresh;
        fresh.launch();
        ASSERT_EQ(fresh.play("> U1O1Z1 ; > U1O3Z3"), "");
        auto& hands = fresh.application.hands();
        const auto slider = std::dynamic_pointer_cast<Slider>(fresh.screen().find("volumeSlider"));
        const auto row = fresh.application.items()->volumeAt(1, "Zone 3");
        ASSERT_TRUE(row && !fresh.application.items()->volumeAt(2, "Zone 4") &&
                    !fresh.application.items()->muteAt(1, "Zone 2"));
        Finger onScreen(hands.on(slider));
        Finger onRow(hands.on(row));
        EXPECT_TRUE(onScreen.press() && onScreen.moveBy(5) && onRow.press() && onRow.moveBy(5));
        bool told = false;
        const auto subscription =
            hands.onCancel([&](auto* view) { told |= !view || view == &fresh.screen(); });
        ASSERT_EQ(fresh.play(happens), "");
        EXPECT_EQ(onScreen.moveBy(1), std::string_view(stays).starts_with("screen")) << happens;
        EXPECT_EQ(onRow.moveBy(1), std::string_view(stays).ends_with("row")) << happens;
        EXPECT_EQ(told, !std::string_view(stays).starts_with("screen")) << happens;
        for (const auto& item : fresh.screen().items())
            EXPECT_EQ(fresh.application.isLocked(item),
                      !fresh.application.link().isConnected() && item.name != "zonePicker")
                << happens << " " << item.name;
        EXPECT_EQ(onRow.press(), fresh.application.link().isConnected()) << happens;
    }
}

} // namespace lumbra::test

#include "Remote.h"
#include "app/Finger.h"
#include "app/Settings.h"

#include <gtest/gtest.h>

namespace lumbra::test {

/// The hands of an application that is launched and connected.
class Hands : public testing::Test {
protected:
    Remote remote;

    void SetUp() override { remote.launch(); }
    Hand& on(std::string_view name) {
        return remote.application.hands().on(std::dynamic_pointer_cast<Slider>(remote.screen().find(name)));
    }
};

// A hand and the unit on one slider. A number moves by that much, as a key does; "v" and "^" put a finger down and lift it,
// "=-30" drags it there; "." lets 100 ms pass; a report arrives; "x" takes it off; "frequency" is about another slider.
TEST_F(Hands, EndWithTheUsersValueOrWithSomebodyElses) {
    // What happens, the script, what is shown at its end, and what is sent in all.
    const char* const cases[][4] = {
        {"a key", "+11", "-29", "[U1Z1V-29]"},
        {"the echo of an earlier step", "+11 . U1Z1V-35", "-29", "[U1Z1V-29]"},
        {"of the value at the start", "-3 +8 . U1Z1V-40 U1Z1V-43", "-35", "[U1Z1V-35]"},
        {"somebody turns it down", "+11 . U1Z1V-60", "-60", ""},
        {"or up", "+11 . U1Z1V-20", "-20", ""},
        {"after that a key counts from there", "+11 . U1Z1V-60 +1", "-59", "[U1Z1V-59]"},
        {"and an echo is one of there", "+11 . U1Z1V-60 +9 +1 U1Z1V-51", "-50", "[U1Z1V-50]"},
        {"a finger that rests", "v U1Z1V-60 ^", "-60", ""},
        {"that moved long ago", "v =-29.5 .......... U1Z1V-35 ^", "-29.5", "[U1Z1V-29] [U1Z1V-29]"},
        {"a level that the unit rounds", "v =-29.5 .......... U1Z1V-29 ^", "-29.5", "[U1Z1V-29]"},
        {"turned down under a finger", "v =-40 =-29 U1Z1V-60 ^", "-60", ""},
        {"that moves on from there", "v =-40 =-29 U1Z1V-60 =-28 ^", "-59", "[U1Z1V-59]"},
        {"a unit that allows no more", "+1 . +29 ....... U1Z1V-20 .........", "-10", "[U1Z1V-10] [U1Z1V-10]"},
        {"has the last word", "+1 . +29 ....... U1Z1V-20 ......... U1Z1V-20 ..........", "-20", "[U1Z1V-10]"},
        {"a hand that is taken off", "+11 U1Z1V-35 x", "-35", ""},
        {"a finger that was not put down", "=-30", "-40", ""},
        {"a drag over a track without a width", "v =nan ^", "-40", ""},
        {"the rounding of low frequencies", "U1O1B1P0F30 frequency -167.5 . U1O1B1P0F20 .", "1309.62", ""},
        {"a filter that is bypassed", "U1O1B1P0F1000 frequency +300 . U1O1B1P0F1000 U1O1B1BYPASS .", "3000",
         ""},
    };
    for (const auto& [what, steps, shown, sent] : cases) {
        const bool isOutput = std::string_view(steps).find("frequency") != std::string_view::npos;
        remote.settings.setValue(ADVANCED_MODE_PREFERENCE, isOutput);
        ASSERT_EQ(remote.play("away ; back ; connect ; > U1Z1V-40 ; wait 5"), "");
        remote.sent();
        auto& hand = on(isOutput ? "filterFreq1" : "volumeSlider");
        Finger finger(hand);
        std::istringstream script(steps);
        for (std::string word; script >> word;) {
            if (word[0] == 'U')
                remote.report(word);
            else if (word == "v")
                EXPECT_TRUE(finger.press());
            else if (word == "^")
                finger.lift();
            else if (word[0] == '=')
                finger.dragTo(std::stof(word.substr(1)));
            else if (word[0] == '.')
                remote.queue.advance(std::chrono::milliseconds(100 * word.size()));
            else if (word == "x")
                remote.application.hands().cancel();
            else if (word != "frequency")
                hand.moveTo(hand.shown() + std::stof(word));
        }
        EXPECT_NEAR(hand.shown(), std::stof(shown), 0.01) << what;
        EXPECT_EQ(remote.play(std::string("wait 5\nsent ").append(sent)), "") << what;
        EXPECT_FALSE(hand.isHeld()) << what;
    }
}

// Fifteen presses of a key, and a unit whose answers come as late as the network brings them.
TEST_F(Hands, OnASlowNetworkTheLastValueArrives) {
    auto& hand = on("volumeSlider");
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
    auto& hand = on("volumeSlider");
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

#include "Remote.h"
#include "app/Settings.h"
#include "app/WindowLife.h"
#include "touch/AddressHint.h"
#include "touch/AppAdapter.h"
#include "touch/BandText.h"
#include "touch/Captions.h"
#include "touch/SliderGrab.h"

#include <QCoreApplication>
#include <QLocale>
#include <QTranslator>
#include <gtest/gtest.h>

#include <cmath>
#include <map>

namespace lumbra::test {

/// The adapters over the real application, launched and connected.
class Adapters : public testing::Test {
protected:
    Remote remote;
    WindowLife life{
        {[this] { remote.application.resignActive(); }, [this] { remote.application.enterBackground(); },
         [this] { remote.application.enterForeground(); }, [this] { remote.application.becomeActive(); }}};
    AppAdapter app{remote.application, life};

    void SetUp() override { remote.launch(); }
    ScreenAdapter& screen() { return *app.screen(); }
    void frame() { remote.queue.advance(RefreshQueue::FRAME); }
};

TEST_F(Adapters, ABurstOfReportsIsOneNotificationAFrame) {
    auto* const slider = screen().slider(QStringLiteral("volumeSlider"));
    ASSERT_EQ(remote.play("> U1APPQ0 ; wait 5"), "");
    int told = 0;
    QObject::connect(slider, &Adapter::changed, slider, [&told] { ++told; });
    for (int report = 0; report < 100; ++report)
        remote.streams.last().feed("(U1Z1V-" + std::to_string(10 + report % 50) + ")");
    EXPECT_EQ(told, 0) << "nothing is told inside a report";
    remote.queue.runPosted();
    EXPECT_EQ(told, 1);
    EXPECT_EQ(slider->value(), -59);
    remote.report("U1Z1V-20");
    remote.queue.runPosted();
    EXPECT_EQ(told, 1) << "the frame is not over";
    frame();
    frame();
    remote.report("U1Z1V-20");
    EXPECT_EQ(told, 2) << "a report that changes nothing is not told";
    EXPECT_EQ(remote.queue.delayed() + remote.queue.runPosted(), 0U) << "idle, nothing may wait";
}

// A hand and the unit on one slider. A number moves by that much, as a key does; "v" and "^" put a finger down and lift it,
// "=-30" drags it there; "." lets 100 ms pass; a report arrives; "x" is another tab; "frequency" takes another slider.
TEST_F(Adapters, AHoldEndsWithTheUsersValueOrWithSomebodyElses) {
    // What happens, the script, what the slider shows at its end, and what is sent in all.
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
        {"another tab", "+11 U1Z1V-35 x", "-35", ""},
        {"the rounding of low frequencies", "U1O1B1P0F30 frequency -167.5 . U1O1B1P0F20 .", "1309.62", ""},
        {"a filter that is bypassed", "U1O1B1P0F1000 frequency +300 . U1O1B1P0F1000 U1O1B1BYPASS .", "3000",
         ""},
    };
    SliderGrab finger;
    for (const auto& [what, steps, shown, sent] : cases) {
        const bool isOutput = std::string_view(steps).find("frequency") != std::string_view::npos;
        remote.settings.setValue(ADVANCED_MODE_PREFERENCE, isOutput);
        ASSERT_EQ(remote.play("away ; back ; connect ; > U1Z1V-40 ; wait 5"), "");
        remote.sent();
        finger.setSlider(
            screen().slider(isOutput ? QStringLiteral("filterFreq1") : QStringLiteral("volumeSlider")));
        std::istringstream script(steps);
        for (std::string word; script >> word;) {
            if (word[0] == 'U')
                remote.report(word);
            else if (word == "v")
                finger.begin();
            else if (word == "^")
                finger.end();
            else if (word[0] == '=')
                finger.dragToValue(std::stod(word.substr(1)));
            else if (word[0] == '.')
                remote.queue.advance(std::chrono::milliseconds(100 * word.size()));
            else if (word == "x")
                app.cancelGrabs();
            else if (word != "frequency")
                finger.slider()->moveBy(std::stod(word));
        }
        EXPECT_NEAR(finger.slider()->value(), std::stod(shown), 0.01) << what;
        EXPECT_EQ(remote.play(std::string("wait 5\nsent ").append(sent)), "") << what;
        EXPECT_FALSE(finger.slider()->isHeld()) << what;
    }
}

// Fifteen presses of a key, and a unit whose answers come as late as the network brings them.
TEST_F(Adapters, OnASlowNetworkTheLastValueArrives) {
    auto* const slider = screen().slider(QStringLiteral("volumeSlider"));
    for (const int late : {0, 50, 110, 290, 760, 1000, 3000})
        for (const int pause : {30, 100, 130, 400}) {
            ASSERT_EQ(remote.play("> U1Z1V-40 ; wait 5"), "");
            std::multimap<int, std::string> answers;
            std::string last;
            for (int time = 0; time < 15'000; time += 10) {
                if (time % pause == 0 && time < 15 * pause)
                    slider->moveBy(1);
                remote.queue.advance(std::chrono::milliseconds(10));
                for (const auto& command : remote.sent())
                    answers.emplace(time + late, last = command.substr(1, command.size() - 2));
                for (; !answers.empty() && answers.begin()->first <= time; answers.erase(answers.begin()))
                    remote.report(answers.begin()->second);
            }
            EXPECT_EQ(last, "U1Z1V-25") << late << " " << pause;
            EXPECT_EQ(slider->value(), -25) << late << " " << pause;
        }
}

TEST_F(Adapters, TheAddressIsWhereConnectionsGo) {
    const AppAdapter other(remote.application, life, QStringLiteral("unit:23"));
    EXPECT_TRUE(other.link()->isRedirected() && !app.link()->isRedirected());
    EXPECT_EQ(other.link()->address(), QStringLiteral("unit:23"));
}

// What a window's fingers seldom do; the others are played in the window.
TEST_F(Adapters, OddHandsMoveNoSlider) {
    auto* const slider = screen().slider(QStringLiteral("volumeSlider"));
    EXPECT_EQ(screen().slider(QStringLiteral("muteSwitch")), nullptr) << "a control of another kind";
    auto finger = std::make_unique<SliderGrab>();
    finger->setSlider(slider);
    EXPECT_FALSE(finger->dragToValue(-30) || finger->moveBy(1)) << "it was not put down";
    finger->begin();
    EXPECT_FALSE(finger->dragToPosition(std::nan(""))) << "a drag over a track without a width";
    finger.reset();
    EXPECT_FALSE(slider->isHeld()) << "a finger whose view has gone holds nothing";

    SliderGrab one;
    SliderGrab other;
    for (auto* const each : {&one, &other}) {
        each->setSlider(slider);
        each->begin();
        each->dragToValue(-40);
    }
    one.dragToValue(-30);
    other.dragToValue(-35);
    EXPECT_EQ(slider->value(), -25) << "both hands move it";
    one.end();
    EXPECT_TRUE(slider->isHeld()) << "the other hand stays";
    other.end();
    EXPECT_EQ(remote.play("wait 2\nsent [U1Z1V-25]"), "");

    one.begin();
    one.setSlider(screen().slider(QStringLiteral("bassSlider")));
    EXPECT_FALSE(slider->isHeld() || one.dragToValue(5)) << "a finger on what now stands for another slider";
}

// Languages differ in what they write small and in what comes first.
TEST(Captions, NamesAreSpokenAsTheLanguageHasThem) {
    // The language, where it is, the caption, and what is spoken.
    const char* const cases[][4] = {{"en", "", "Volume", "Volume"},
                                    {"en", "%2 %1", "Frequency 3", "%2 %1 frequency 3"},
                                    {"de", "Bad", "Gain 7", "Bad Verstärkung 7"},
                                    {"fr", "Salon", "Volume", "volume Salon"},
                                    {"es", "Patio", "Frequency 3", "frecuencia 3 Patio"}};
    int argc = 0;
    const QCoreApplication qt(argc, nullptr);
    for (const auto& [language, where, caption, spoken] : cases) {
        QTranslator translator;
        if (translator.load(QStringLiteral(":/i18n/lumbra_%1.qm").arg(QLatin1String(language))))
            QCoreApplication::installTranslator(&translator);
        EXPECT_EQ(spokenName(QString::fromUtf8(where), caption).toStdString(), spoken) << language;
        const auto alert = translatedText("Failed to connect to IP address 10.0.0.9.").toStdString();
        EXPECT_TRUE(alert.starts_with("Failed") == (*language == 'e' && language[1] == 'n') &&
                    alert.ends_with("10.0.0.9."));
    }
}

// What the sliders stand for, to the hertz and as it is sent, however coarse the labels are.
TEST(BandText, IsExactInEveryLanguage) {
    const std::tuple<const char*, double, double, bool, const char*, const char*> cases[] = {
        {"en", 20, -15, true, "20 Hz, -15 dB", "20 hertz, -15 decibels"},
        {"en", 999.6, 0.9, true, "1 kHz, 0 dB", "1 kilohertz, 0 decibels"},
        {"en", 1000, 11.8, true, "1 kHz, +11 dB", "1 kilohertz, 11 decibels"},
        {"en", 1050, -0.9, true, "1.05 kHz, 0 dB", "1.05 kilohertz, 0 decibels"},
        {"en", 1753, -3.7, true, "1.753 kHz, -3 dB", "1.753 kilohertz, -3 decibels"},
        {"de", 19'900, 15, true, "19,9 kHz, +15 dB", "19,9 kilohertz, 15 decibels"},
        {"es", 20'000, 15, false, "20 kHz", "20 kilohertz"},
    };
    for (const auto& [locale, hertz, gain, hasGain, shown, spoken] : cases) {
        QLocale::setDefault(QLocale(QLatin1String(locale)));
        const double slider = 1000 * std::log10(hertz);
        EXPECT_EQ(BandText::shown(slider, gain, hasGain).toStdString(), shown);
        EXPECT_EQ(BandText::spoken(slider, gain, hasGain).toStdString(), spoken);
    }
    QLocale::setDefault(QLocale::c());
}

TEST(AddressHint, TellsWhatIsOddAndNothingElse) {
    for (const char* fine : {"192.168.1.50", "0.0.0.0", "unit.local", "lumbra", "fe80::1%eth0", "::a"})
        EXPECT_TRUE(addressHint(QString::fromLatin1(fine)).isEmpty()) << fine;
    for (const char* odd : {"", "192.168.1", "192.168.1.256", "192.168.1.0050", "192.168..50", "1.2.3.4.5",
                            "192.168.1.50 ", "192.168.1.50:23", "unit:23", "http//x"})
        EXPECT_FALSE(addressHint(QString::fromLatin1(odd)).isEmpty()) << odd;
}

} // namespace lumbra::test

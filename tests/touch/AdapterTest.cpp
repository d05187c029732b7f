#include "Remote.h"
#include "app/BandSetting.h"
#include "app/Settings.h"
#include "app/WindowLife.h"
#include "touch/AppAdapter.h"
#include "touch/BandText.h"
#include "touch/Captions.h"
#include "touch/SliderGrab.h"

#include <QCoreApplication>
#include <QLocale>
#include <QTranslator>
#include <gtest/gtest.h>

#include <cmath>

namespace lumbra::test {

/// The adapters over the real application, launched and connected.
class Adapters : public testing::Test {
protected:
    Remote remote;
    WindowLife life{remote.application};
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

TEST_F(Adapters, TheAddressIsWhereConnectionsGo) {
    const AppAdapter other(remote.application, life, QStringLiteral("unit:23"));
    EXPECT_TRUE(other.link()->isRedirected() && !app.link()->isRedirected());
    EXPECT_EQ(other.link()->address(), QStringLiteral("unit:23"));
}

TEST(Notice, APanelThatTriesAgainSaysSoInItsHeaderOnly) {
    for (const auto reconnection : {Reconnection::ByUser, Reconnection::Automatic}) {
        Remote remote(reconnection);
        remote.launch();
        remote.play("error");
        EXPECT_TRUE(remote.application.alerts().shown());
        EXPECT_EQ(remote.application.notice().shown() == nullptr, reconnection == Reconnection::Automatic);
    }
}

// What a window's fingers seldom do; the others are played in the window.
TEST_F(Adapters, OddHandsMoveNoSlider) {
    auto* const slider = screen().slider(QStringLiteral("volumeSlider"));
    EXPECT_EQ(screen().slider(QStringLiteral("muteSwitch")), nullptr) << "a control of another kind";
    auto finger = std::make_unique<SliderGrab>();
    EXPECT_FALSE(finger->dragToValue(5) || finger->moveBy(1)) << "on no slider";
    finger->setSlider(slider);
    finger->begin();
    EXPECT_TRUE(slider->isHeld() && finger->dragToPosition(0.75));
    finger->setSlider(screen().slider(QStringLiteral("bassSlider")));
    EXPECT_FALSE(finger->dragToValue(5)) << "a finger on what now stands for another slider";
    finger->setSlider(slider);
    finger->begin();
    finger.reset();
    remote.play("wait 1");
    EXPECT_EQ(slider->value(), -20);
    EXPECT_FALSE(slider->isHeld()) << "a finger whose view has gone holds nothing";
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
        const auto alert =
            translatedText(Text{"Failed to connect to IP address %1.", {"10.0.0.9"}}).toStdString();
        EXPECT_TRUE(alert.starts_with("Failed") == (*language == 'e' && language[1] == 'n') &&
                    alert.ends_with("10.0.0.9."));
    }
}

// What the sliders stand for, to the hertz and as it is sent, however coarse the labels are.
TEST(BandText, IsExactInEveryLanguage) {
    const std::tuple<const char*, double, double, bool, const char*, const char*> cases[] = {
        {"en", 20, -15, true, "20 Hz, −15 dB", "20 hertz, -15 decibels"},
        {"en", 999.6, 0.9, true, "1 kHz, 0 dB", "1 kilohertz, 0 decibels"},
        {"en", 1000, 11.8, true, "1 kHz, +11 dB", "1 kilohertz, 11 decibels"},
        {"en", 1050, -0.9, true, "1.05 kHz, 0 dB", "1.05 kilohertz, 0 decibels"},
        {"en", 1753, -3.7, true, "1.753 kHz, −3 dB", "1.753 kilohertz, -3 decibels"},
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

// What people type, and what a band can't have.
TEST(BandText, TakesWhatIsTyped) {
    const std::tuple<const char*, std::optional<int>, std::optional<int>> cases[] = {
        {"3150", 3150, {}},
        {"3.15 kHz", 3150, {}},
        {"3,15k", 3150, {}},
        {"63 Hz", 63, {}},
        {"3.15", 3150, 3},
        {"20", 20, {}},
        {"20001", {}, {}},
        {"-3", {}, -3},
        {"−2,6 dB", {}, -3},
        {"+15", 15'000, 15},
        {"15.6", 15'600, {}},
        {"", {}, {}},
        {"k", {}, {}},
        {"1e3", {}, {}},
        {"3 dB Hz", {}, {}},
        {"nan", {}, {}},
        {"999999999999999999999k", {}, {}}};
    for (const auto& [text, hertz, decibels] : cases) {
        EXPECT_EQ(typedFrequency(text), hertz) << text;
        EXPECT_EQ(typedGain(text), decibels) << text;
    }
    EXPECT_TRUE(std::isnan(BandText::typedFrequency(QStringLiteral("loud"))));
}

} // namespace lumbra::test

#include "Remote.h"
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

namespace lumbra {
namespace {

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
    frame();
    frame();
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
    EXPECT_EQ(remote.queue.delayed() + remote.queue.posted(), 0U) << "idle, nothing may wait";
}

// What a window's fingers seldom do; the others are played in the window.
TEST_F(Adapters, OddHandsMoveNoSlider) {
    auto* const slider = screen().slider(QStringLiteral("volumeSlider"));
    auto finger = std::make_unique<SliderGrab>();
    finger->setSlider(slider);
    EXPECT_FALSE(finger->dragToValue(-30)) << "it was not put down";
    finger->begin();
    EXPECT_FALSE(finger->dragToPosition(std::nan(""))) << "a drag over a track without a width";
    finger.reset();
    EXPECT_FALSE(slider->isHeld()) << "a finger whose view has gone holds nothing";

    int other = 0;
    slider->grab(this);
    slider->grab(&other);
    remote.report("U1Z1V-60");
    frame();
    slider->release(this);
    EXPECT_EQ(slider->value(), -40) << "the other hand stays";
    slider->release(&other);
    EXPECT_EQ(slider->value(), -60) << "a finger that did not move wants nothing";
    EXPECT_EQ(remote.play("wait 1\nsent"), "");

    SliderGrab editor;
    editor.setSlider(slider);
    editor.begin();
    editor.setSlider(screen().slider(QStringLiteral("bassSlider")));
    EXPECT_FALSE(slider->isHeld() || editor.dragToValue(5))
        << "a finger on what now stands for another slider";
}

TEST_F(Adapters, RowsChangeOneByOne) {
    auto* const rows = screen().picker(QStringLiteral("zonePicker"))->rows();
    int resets = 0;
    QObject::connect(rows, &QAbstractItemModel::modelReset, rows, [&] { ++resets; });
    ASSERT_EQ(remote.play("> U1O2Z3\n> U1O3Z5\n> U1Z5N\"Bar\"\nwait 0.1"), "");
    EXPECT_EQ(rows->rowCount(), 2);
    EXPECT_EQ(rows->index(1, 0).data().toString(), QStringLiteral("Bar"));
    EXPECT_EQ(resets, 0) << "a reset makes a wheel lose its place";
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
    }
}

// What the sliders stand for, to the hertz and as it is sent, however coarse the labels are.
TEST(BandText, IsExactInEveryLanguage) {
    struct {
        const char* locale;
        double hertz, gain;
        bool hasGain;
        const char *shown, *spoken;
    } const cases[] = {
        {"en", 20, -15, true, "20 Hz, -15 dB", "20 hertz, -15 decibels"},
        {"en", 999, 0, true, "999 Hz, 0 dB", "999 hertz, 0 decibels"},
        {"en", 999.6, 0.9, true, "1 kHz, 0 dB", "1 kilohertz, 0 decibels"},
        {"en", 1000, 11.8, true, "1 kHz, +11 dB", "1 kilohertz, 11 decibels"},
        {"en", 1050, -0.9, true, "1.05 kHz, 0 dB", "1.05 kilohertz, 0 decibels"},
        {"en", 1753, -3.7, true, "1.753 kHz, -3 dB", "1.753 kilohertz, -3 decibels"},
        {"de", 19'900, 15, true, "19,9 kHz, +15 dB", "19,9 kilohertz, 15 decibels"},
        {"fr", 19'999, 15, false, "19,999 kHz", "19,999 kilohertz"},
        {"es", 20'000, 15, false, "20 kHz", "20 kilohertz"},
    };
    for (const auto& c : cases) {
        QLocale::setDefault(QLocale(QLatin1String(c.locale)));
        const double slider = 1000 * std::log10(c.hertz);
        EXPECT_EQ(BandText::shown(slider, c.gain, c.hasGain).toStdString(), c.shown);
        EXPECT_EQ(BandText::spoken(slider, c.gain, c.hasGain).toStdString(), c.spoken);
    }
    QLocale::setDefault(QLocale::c());
}

TEST(AddressHint, TellsWhatIsOddAndNothingElse) {
    for (const char* fine : {"192.168.1.50", "0.0.0.0", "unit.local", "lumbra", "fe80::1%eth0", "::1"})
        EXPECT_TRUE(addressHint(QString::fromLatin1(fine)).isEmpty()) << fine;
    for (const char* odd : {"", "192.168.1", "192.168.1.256", "192.168..50", "1.2.3.4.5", "192.168.1.50 ",
                            "192.168.1.50:23", "unit:23", "http//x"})
        EXPECT_FALSE(addressHint(QString::fromLatin1(odd)).isEmpty()) << odd;
}

} // namespace
} // namespace lumbra

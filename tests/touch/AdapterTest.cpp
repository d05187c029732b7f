#include "Remote.h"
#include "app/WindowLife.h"
#include "screens/Readings.h"
#include "touch/AddressHint.h"
#include "touch/AppAdapter.h"
#include "touch/Captions.h"

#include <QCoreApplication>
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
    /// Counts the notifications of `adapter`.
    static std::shared_ptr<int> notifications(Adapter& adapter) {
        auto count = std::make_shared<int>(0);
        QObject::connect(&adapter, &Adapter::changed, &adapter, [count] { ++*count; });
        return count;
    }
};

TEST_F(Adapters, ABurstOfReportsIsOneNotificationAFrame) {
    auto* const slider = screen().slider(QStringLiteral("volumeSlider"));
    frame();
    frame();
    const auto count = notifications(*slider);
    for (int report = 0; report < 100; ++report)
        remote.streams.last().feed("(U1Z1V-" + std::to_string(10 + report % 50) + ")");
    EXPECT_EQ(*count, 0) << "nothing is told inside a report";
    remote.queue.runPosted();
    EXPECT_EQ(*count, 1);
    EXPECT_EQ(slider->value(), -59);
    remote.report("U1Z1V-20");
    remote.report("U1Z1V-30");
    remote.queue.runPosted();
    EXPECT_EQ(*count, 1) << "the frame is not over";
    frame();
    EXPECT_EQ(*count, 2);
    frame();
    EXPECT_EQ(remote.queue.delayed() + remote.queue.posted(), 0U) << "idle, nothing may wait";
    remote.report("U1Z1V-30");
    frame();
    EXPECT_EQ(*count, 2) << "a report that changes nothing is not told";
}

TEST_F(Adapters, AHeldSliderStaysUnderTheFinger) {
    auto* const slider = screen().slider(QStringLiteral("volumeSlider"));
    const auto& control = remote.control<Slider>("volumeSlider");
    slider->grab(this);
    EXPECT_FALSE(slider->moveToPosition(std::nan(""))) << "a drag over a track without a width";
    EXPECT_TRUE(slider->moveToValue(-30));
    remote.report("U1Z1V-70");
    frame();
    EXPECT_EQ(slider->value(), -30);
    EXPECT_EQ(control.value(), -70);
    slider->release(this);
    EXPECT_EQ(control.value(), -30) << "the last position is delivered once more";
    EXPECT_EQ(remote.play("wait 0.75\nsent [U1Z1V-30]"), "");

    slider->grab(this);
    remote.report("U1Z1V-60");
    frame();
    EXPECT_EQ(slider->value(), -30);
    slider->release(this);
    EXPECT_EQ(slider->value(), -60) << "a finger that did not move wants nothing";
    EXPECT_EQ(remote.play("wait 1\nsent"), "");
}

TEST_F(Adapters, ADisabledSliderRefuses) {
    ASSERT_EQ(remote.play("set advanced_mode_preference true\naway\nback\nconnect"), "");
    auto* const slider = screen().slider(QStringLiteral("filterGain1"));
    ASSERT_NE(slider, nullptr);
    slider->grab(this);
    EXPECT_FALSE(slider->moveToValue(5));
    slider->release(this);
    EXPECT_EQ(slider->value(), 0);
    EXPECT_EQ(screen().slider(QStringLiteral("filterGain8")), nullptr);
    EXPECT_EQ(screen().picker(QStringLiteral("filterGain1")), nullptr) << "another kind";
}

TEST_F(Adapters, APickIsWhatThePersonSaw) {
    auto* const picker = screen().picker(QStringLiteral("sourcePicker"));
    remote.sent();
    frame();
    frame();
    remote.report("U1Z1V-20");
    remote.queue.runPosted();
    remote.report("U1I3N\"Radio\"");
    EXPECT_FALSE(picker->pick(2, picker->textAt(2))) << "the new name is not on show yet";
    frame();
    EXPECT_FALSE(picker->pick(2, QStringLiteral("Source 3"))) << "the finger came down on the old name";
    EXPECT_FALSE(picker->pick(99, {}));
    EXPECT_FALSE(picker->pick(-1, {}));
    EXPECT_TRUE(remote.sent().empty());
    EXPECT_TRUE(picker->pick(2, QStringLiteral("Radio")));
    EXPECT_TRUE(picker->pick(2, QStringLiteral("Radio"))) << "the row that is selected is picked again";
    EXPECT_EQ(remote.sent().size(), 2U);
}

TEST_F(Adapters, RowsChangeOneByOne) {
    auto* const picker = screen().picker(QStringLiteral("zonePicker"));
    ASSERT_EQ(picker->count(), 16);
    int resets = 0;
    QObject::connect(picker->rows(), &QAbstractItemModel::modelReset, picker, [&] { ++resets; });
    ASSERT_EQ(remote.play("> U1O2Z3\n> U1O3Z5\n> U1Z5N\"Bar\"\nwait 0.1"), "");
    EXPECT_EQ(picker->count(), 2);
    EXPECT_EQ(picker->rows()->index(1, 0).data().toString(), QStringLiteral("Bar"));
    EXPECT_EQ(resets, 0) << "a reset makes a wheel lose its place";
}

TEST_F(Adapters, TheSettingsAreOutsideTheApplication) {
    auto& settings = *app.settings();
    settings.open();
    EXPECT_EQ(remote.play("link closed"), "");
    settings.setAddress(QStringLiteral("10.0.0.7"));
    settings.setUnit(3);
    settings.setAdvancedMode(true);
    EXPECT_EQ(settings.tabs().first(), QStringLiteral("Outputs"));
    EXPECT_EQ(remote.play("screen zone"), "") << "until it is closed nothing follows";
    settings.close();
    EXPECT_EQ(remote.play("screen output\nconnect\nsent [U3SERIAL0] [U3APPQ1]"), "");
    EXPECT_EQ(app.link()->address(), QStringLiteral("10.0.0.7"));
    EXPECT_EQ(screen().name(), QStringLiteral("output"));
}

TEST(Captions, TheSystemsTextsAndNoOthersAreTranslated) {
    EXPECT_EQ(translatedText("Override 10"), QStringLiteral("Override 10"));
    EXPECT_EQ(translatedText("Failed to connect to IP address %1."),
              QStringLiteral("Failed to connect to IP address %1."));
    EXPECT_EQ(translatedText("K\xc3\xbc"
                             "che"),
              QString::fromUtf8("K\xc3\xbc"
                                "che"));
    EXPECT_EQ(spokenText(Label(percentOfVolume(-40))), QStringLiteral("50 percent"));
    EXPECT_EQ(spokenText(Label(decibels(-40))), QStringLiteral("-40 decibels"));
    EXPECT_EQ(spokenText(Label(hertz(12999))), QStringLiteral("12 kilohertz"));
    EXPECT_EQ(spokenText(Label("Gain")), QStringLiteral("Gain"));
}

// Languages differ in what they write small and in what comes first.
TEST(Captions, NamesAreSpokenAsTheLanguageHasThem) {
    struct Case {
        const char* language;
        const char* where;
        const char* caption;
        const char* spoken;
    };
    int argc = 0;
    const QCoreApplication qt(argc, nullptr);
    for (const auto& [language, where, caption, spoken] : {
             Case{"en", "Kitchen", "Volume", "Kitchen volume"},
             Case{"en", "", "Volume", "Volume"},
             Case{"en", "Patio", "Frequency 3", "Patio frequency 3"},
             Case{"en", "%2 %1", "Mute", "%2 %1 mute"},
             Case{"de", "Bad", "Volume", "Bad Lautstärke"},
             Case{"de", "Bad", "Gain 7", "Bad Verstärkung 7"},
             Case{"fr", "Salon", "Volume", "volume Salon"},
             Case{"es", "Patio", "Frequency 3", "frecuencia 3 Patio"},
         }) {
        QTranslator translator;
        if (translator.load(QStringLiteral(":/i18n/lumbra_%1.qm").arg(QLatin1String(language))))
            QCoreApplication::installTranslator(&translator);
        EXPECT_EQ(spokenName(QString::fromUtf8(where), caption).toStdString(), spoken) << language;
    }
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

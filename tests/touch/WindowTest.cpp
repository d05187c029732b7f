#include "Remote.h"
#include "app/WindowLife.h"
#include "touch/DisplayGuard.h"
#include "touch/FirstRun.h"
#include "touch/TouchFrontEnd.h"

#include <QFont>
#include <QGuiApplication>
#include <QQuickWindow>
#include <gtest/gtest.h>

namespace lumbra::test {

TEST(WindowLife, SendsEachEventOnceAChange) {
    // a, i, h: the window becomes active, inactive, hidden; o, c: the settings open, close; s: from now on the first
    // event brings the window back to sight. The events: resign active, enter background, enter foreground, become active.
    const char* const cases[][3] = {{"minimised and back", "ha", "rbfa"},
                                    {"returning without leaving", "aa", ""},
                                    {"a phone's notification shade", "ia", "ra"},
                                    {"back by way of inactive", "hia", "rbfa"},
                                    {"minimised while the settings are open", "ohac", "rbfa"},
                                    {"the settings closed while hidden", "hoca", "rbfa"},
                                    {"the settings opened twice", "oo", "rb"},
                                    {"closed without having been opened", "c", ""},
                                    {"an event that changes the window", "sh", "ra"}};
    for (const auto& [what, happens, expected] : cases) {
        std::string events;
        bool returns = false;
        std::optional<WindowLife> life;
        const auto resign = [&] {
            events += 'r';
            returns ? life->setVisibility(WindowLife::Visibility::Active) : void();
        };
        life.emplace(WindowLife::Events{resign, [&] { events += 'b'; }, [&] { events += 'f'; },
                                        [&] { events += 'a'; }});
        for (const char happening : std::string(happens)) {
            if (happening == 's')
                returns = true;
            else if (happening == 'o' || happening == 'c')
                life->setSettingsOpen(happening == 'o');
            else
                life->setVisibility(happening == 'a'   ? WindowLife::Visibility::Active
                                    : happening == 'i' ? WindowLife::Visibility::Inactive
                                                       : WindowLife::Visibility::Hidden);
        }
        EXPECT_EQ(events, expected) << what;
    }
}

// What the page gives is what was typed, once, and not before the button is pressed.
TEST(FirstRun, TellsWhatWasAnswered) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    int count = 0;
    const QGuiApplication qt(count, nullptr);
    for (const bool wantsDemo : {false, true}) {
        std::vector<std::string> answers;
        FirstRun first([&](const auto& unit) {
            answers.push_back(unit ? unit->address + " " + std::to_string(unit->unit) : "demo");
        });
        ASSERT_TRUE(first.show(false) && QGuiApplication::topLevelWindows().constFirst()->isVisible());
        const auto press = [](const char* name, const char* property = nullptr, const QVariant& value = {}) {
            for (auto* const window : QGuiApplication::topLevelWindows())
                if (auto* const item = window->findChild<QObject*>(QString::fromLatin1(name)))
                    property ? item->setProperty(property, value)
                             : QMetaObject::invokeMethod(item, "clicked");
        };
        press("connectButton");
        press("addressField", "text", QStringLiteral("10.0.0.7"));
        press("unitChoice", "selected", 2);
        QCoreApplication::processEvents();
        EXPECT_EQ(answers, std::vector<std::string>{}) << "there was no address to connect to";
        press(wantsDemo ? "demoButton" : "connectButton");
        press("connectButton");
        QCoreApplication::processEvents();
        EXPECT_EQ(answers, std::vector<std::string>{wantsDemo ? "demo" : "10.0.0.7 3"});
    }
}

// A window that is away keeps no link; one that comes back opens one, and only one.
TEST(TouchFrontEnd, WhatBecomesOfTheWindowIsTheApplicationsLife) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    int count = 0;
    const QGuiApplication qt(count, nullptr);
    TouchFrontEnd::installTypeface();
    Remote remote;
    TouchFrontEnd touch(remote.application, {});
    ASSERT_TRUE(touch.show());
    // A font that sets nothing by itself gives way to that of the platform's theme, which only a real display has.
    EXPECT_NE(touch.window()->property("font").value<QFont>().resolveMask(), 0U);
    remote.settle();
    remote.streams.last().connect();
    remote.settle();
    for (const auto& [what, change, link, pairs] :
         {std::tuple("minimised", &QWindow::showMinimized, "link closed", 1U),
          {"hidden while minimised", &QWindow::hide, "link closed", 1U},
          {"back", &QWindow::showNormal, "link opening", 2U},
          {"larger", &QWindow::showMaximized, "link opening", 2U},
          {"hidden", &QWindow::hide, "link closed", 2U},
          {"shown", &QWindow::showFullScreen, "link opening", 3U}}) {
        (touch.window()->*change)();
        QCoreApplication::processEvents();
        remote.settle();
        EXPECT_EQ(remote.play(link), "") << what;
        EXPECT_EQ(remote.streams.created(), pairs) << what;
    }
}

TEST(TouchFrontEnd, WithoutADisplayASentenceNamesTheConsole) {
    const auto start = [] {
        const DisplayGuard guard;
        qputenv("QT_QPA_PLATFORM", "none");
        int count = 0;
        const QGuiApplication qt(count, nullptr);
    };
    EXPECT_EXIT(start(), testing::ExitedWithCode(1),
                "^lumbra-remote: There is no display[^\n]*--console[^\n]*\n$");
    EXPECT_DEATH(
        {
            { const DisplayGuard guard; }
            qFatal("no matter of a display");
        },
        "no matter of a display");
}

} // namespace lumbra::test

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

// What becomes active once too often asks the unit again; what leaves once too often loses its link.
TEST(WindowLife, SendsEachEventOnceAChange) {
    const Scenario scenarios[] = {
        {"minimised and back", "hide ; link closed ; show ; link opening ; sockets 1"},
        {"returning without leaving", "show ; sent ; link open"},
        {"minimised while the settings are open",
         "settings ; hide ; show ; link closed ; done ; link opening"},
        {"the settings closed while hidden", "hide ; settings ; done ; link closed ; show ; link opening"},
        {"the settings opened twice", "settings ; reconnect ; settings ; link opening ; connect ; done ; "
                                      "sent [U1SERIAL0] [U1APPQ0] [U1APPQ0]"},
        {"closed without having been opened", "done ; sent ; link open"},
    };
    for (const auto& [what, script] : scenarios) {
        Remote remote;
        remote.launch();
        WindowLife life(remote.application);
        const std::map<std::string, std::function<void()>> happenings{
            {"hide", [&] { life.setVisible(false); }},
            {"show", [&] { life.setVisible(true); }},
            {"settings", [&] { life.setSettingsOpen(true); }},
            {"done", [&] { life.setSettingsOpen(false); }}};
        const auto problems = runSteps(script, [&](const std::string& step) {
            if (const auto found = happenings.find(step); found != happenings.end())
                return found->second(), remote.settle(), std::string();
            return remote.play(step);
        });
        EXPECT_EQ(problems, "") << what;
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

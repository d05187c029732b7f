#include "touch/TouchFrontEnd.h"

#include "Remote.h"

#include <QGuiApplication>
#include <QQuickWindow>
#include <gtest/gtest.h>

#include <array>

namespace lumbra {
namespace {

// A window that is away keeps no link; one that comes back opens one, and only one.
TEST(TouchFrontEnd, WhatBecomesOfTheWindowIsTheApplicationsLife) {
    std::array<char*, 4> arguments{const_cast<char*>("test"), const_cast<char*>("-platform"),
                                   const_cast<char*>("offscreen"), nullptr};
    int count = 3;
    const QGuiApplication qt(count, arguments.data());
    Remote remote;
    TouchFrontEnd touch(remote.application, {});
    ASSERT_TRUE(touch.show());
    remote.settle();
    remote.streams.last().connect();
    remote.settle();
    auto& window = *touch.window();
    struct Step {
        const char* what;
        void (QWindow::*change)();
        const char* link;
        std::size_t pairs;
    };
    for (const auto& [what, change, link, pairs] :
         {Step{"minimised", &QWindow::showMinimized, "link closed", 1},
          Step{"hidden while minimised", &QWindow::hide, "link closed", 1},
          Step{"back", &QWindow::showNormal, "link opening", 2},
          Step{"larger", &QWindow::showMaximized, "link opening", 2},
          Step{"hidden", &QWindow::hide, "link closed", 2},
          Step{"shown", &QWindow::showFullScreen, "link opening", 3}}) {
        (window.*change)();
        QCoreApplication::processEvents();
        remote.settle();
        EXPECT_EQ(remote.play(link), "") << what;
        EXPECT_EQ(remote.streams.created(), pairs) << what;
    }
}

} // namespace
} // namespace lumbra

#include "app/WindowLife.h"

#include <gtest/gtest.h>

#include <string>

namespace lumbra {
namespace {

TEST(WindowLife, SendsEachEventOnceAChange) {
    // a, i, h: the window becomes active, inactive, hidden; o, c: the settings open, close.
    struct Case {
        const char* what;
        const char* happens;
        const char* events;
    };
    const Case cases[] = {
        {"minimised and back", "ha", "resign background foreground active "},
        {"leaving twice", "hh", "resign background "},
        {"returning without leaving", "aa", ""},
        {"a phone's notification shade", "ia", "resign active "},
        {"inactive, then away", "ih", "resign background "},
        {"back by way of inactive", "hia", "resign background foreground active "},
        {"the settings", "oc", "resign background foreground active "},
        {"minimised while the settings are open", "ohac", "resign background foreground active "},
        {"the settings closed while hidden", "hoca", "resign background foreground active "},
        {"the settings opened twice", "oo", "resign background "},
        {"closed without having been opened", "c", ""},
    };
    for (const auto& c : cases) {
        std::string events;
        const auto tell = [&events](const char* name) { return [&events, name] { events += name; }; };
        WindowLife life({tell("resign "), tell("background "), tell("foreground "), tell("active ")});
        for (const char happening : std::string(c.happens)) {
            if (happening == 'o' || happening == 'c')
                life.setSettingsOpen(happening == 'o');
            else
                life.setVisibility(happening == 'a'   ? WindowLife::Visibility::Active
                                   : happening == 'i' ? WindowLife::Visibility::Inactive
                                                      : WindowLife::Visibility::Hidden);
        }
        EXPECT_EQ(events, c.events) << c.what;
    }
}

TEST(WindowLife, AnEventMayChangeTheWindow) {
    std::string events;
    WindowLife* target = nullptr;
    WindowLife life({[&] {
                         events += "resign ";
                         target->setVisibility(WindowLife::Visibility::Active);
                     },
                     [&] { events += "background "; }, [&] { events += "foreground "; },
                     [&] { events += "active "; }});
    target = &life;
    life.setVisibility(WindowLife::Visibility::Hidden);
    EXPECT_EQ(events, "resign active ");
}

} // namespace
} // namespace lumbra

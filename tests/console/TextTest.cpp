#include "Session.h"
#include "text/Utf8.h"

#include <gtest/gtest.h>

namespace {

using namespace lumbra;
using namespace lumbra::script;

TEST(Utf8, WhatIsNoneIsReplacedByteByByte) {
    const std::pair<const char*, const char*> cases[] = {
        {"\xc3\xa9\xe2\x82\xac\xf0\x9f\x8e\xb5", "\xc3\xa9\xe2\x82\xac\xf0\x9f\x8e\xb5"},
        {"\xe9", "\xef\xbf\xbd"},                                 // a Latin-1 byte
        {"\xc3x", "\xef\xbf\xbdx"},                               // cut off: what follows is kept
        {"\xc0\xaf", "\xef\xbf\xbd\xef\xbf\xbd"},                 // overlong
        {"\xed\xa0\x80", "\xef\xbf\xbd\xef\xbf\xbd\xef\xbf\xbd"}, // a surrogate
        {"\xf4\x90\x80\x80", "\xef\xbf\xbd\xef\xbf\xbd\xef\xbf\xbd\xef\xbf\xbd"}, // beyond Unicode
    };
    for (const auto& [bytes, valid] : cases) {
        EXPECT_EQ(escapedInJson(bytes), valid);
        EXPECT_EQ(isUtf8(bytes), std::string(bytes) == valid);
    }
}

TEST(Utf8, NothingReachesIntoTheTerminal) {
    const std::pair<const char*, const char*> cases[] = {
        {"Caf\xc3\xa9 \"A\\B\"", "\"Caf\xc3\xa9 \\\"A\\\\B\\\"\""},
        {"\x1b[2J\a\r\n", R"("\x1b[2J\x07\x0d\x0a")"},
        {"\xc2\x9b"
         "31m",
         R"("\x9b31m")"}, // the one-byte form of ESC [
        // What turns the direction of writing, ends a line or has no width, and what is beside it in Unicode.
        {"\u061c\u200b\u200f\u2028\u202e\u2060\u2069\ufeff",
         R"("\u061c\u200b\u200f\u2028\u202e\u2060\u2069\ufeff")"},
        {"\u061b\u200a\u2010\u2027\u202f\u205f\u206a\u00a0",
         "\"\u061b\u200a\u2010\u2027\u202f\u205f\u206a\u00a0\""},
    };
    for (const auto& [text, shown] : cases)
        EXPECT_EQ(quotedForTerminal(text), shown);
}

TEST(Text, PlaysItsTranscript) {
    Session session(false);
    session.type("get start_tab_preference\n"); // it launches before it reads
    session.start(false);
    EXPECT_EQ(session.play(R"(
        < screen: [zone] group override scene
        < link: opening ; <   start_tab_preference  absent
        $ tab scene ; < screen: zone group override [scene] ; < ok ; ~ connect ; < link: open ; < status: waiting ; < spinner: turning
        ~ > U1SP1N"Quiet)"
                           "\x1b[2J"
                           R"("
        < scenePicker: 0 "Quiet\x1b[2J" of 10
        ~ > U1SP2N"Loud" ; $ pick scenePicker 1 ; < scenePicker: 1 "Loud" of 10 ; < ok
        $ pick scenePicker 10 ; < error: scenePicker: no row 10; there are 0 to 9
        $ state
        < scene screen, link open (192.168.1.50, unit 1); tabs: zone group override [scene]
        <~   scenePicker      picker     0 "Quiet\x1b[2J" [1 "Loud"] 2 "Scene 3" 3 "Scene 4" 4 "Scene 5" 5 "Scene 6" 6 "Scene 7" 7 "Scene 8" 8 "Scene 9" 9 "Scene 10"
        <   loadSceneButton  button     "Recall"
        <   saveSceneButton  button     "Store"
        <   spinner          indicator  turning
        < status: waiting
        $ set ip_address_preference "a b" ; < ok ; $ get ip_address_preference ; <   ip_address_preference  "a b"
        $ unset ip_address_preference ; < ok ; $ get ip_address_preference ; <   ip_address_preference  absent
        ~ error ; < link: closed ; < status: offline ; < alert: Error: Failed to connect to IP address 192.168.1.50. [OK]
        $ tab zone ; ~ connect ; ~ > U1Z1N"Hall" ; ~ > U1APPQ0 ; ~ network off ; ~ error ; $ tab group ; $ tab zone ; <...
        $ state
        < zone screen, link closed (192.168.1.50, unit 1); tabs: [zone] group override scene
        <   zonePicker      picker     no rows
        <~ sourcePicker
        <~   volumeSlider    slider     -40.0 (-80.0 to 0.0)
        <~   volumeLabel     label      "50%"
        <~   muteSwitch      switch     off
        <~ loudnessSwitch ; <~ bassSlider ; <~ bassLabel ; <~ trebleSlider ; <~ trebleLabel ; <~ stopped
        < alert: Error: Failed to connect to IP address 192.168.1.50. [OK]
        < status: offline ; < items:
        $ tab group ; <... ; $ watch on ; < ok ; ~ network on ; $ app away ; $ app back ; ~ connect ; <...
        ~ > U1G2M1 ; <~ muted ; ~ > U1G2M0 ; <~ "Group 2" ; ~ > U1G3P0 ; <~ power off
        $ dismiss ; < ok ; $ watch off ; < ok ; $ set polling_preference false ; $ app away ; $ app back ; ~ connect ; $ tab zone ; <...
        ~ > U1Z1M1 ; < muteSwitch: on ; $ tab group ; <... ; ~ > U1G1M1 ; < muteSwitch: on
        $ hold volumeSlider ; <~ held at -40.0 ; < ok ; $ quit ; < ok ; exit 1)"),
              "");
}

} // namespace

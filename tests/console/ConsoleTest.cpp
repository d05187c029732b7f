#include "Session.h"

#include <QByteArray>
#include <gtest/gtest.h>

namespace {

using namespace lumbra;

TEST(Console, PlaysItsTranscripts) {
    const Scenario scenarios[] = {
        {"only the screen on show tells of its controls", R"(
            ~ > U1Z1V-30
            <~ {"event":"control","screen":"zone","control":"volumeSlider","state":{"kind":"slider","value":-30.0,"min":-80.0,"max":0.0,"enabled":true,"caption":"Volume",
            <~ {"event":"control","screen":"zone","control":"volumeLabel","state":{"kind":"label","text":"62%","caption":"" ; <~ muteSwitch
            $ tab scene
            < {"event":"screen","screen":"scene","tabs":["zone","group","override","scene"],"selected":3}
            < {"event":"status","status":"waiting"}
            < {"event":"control","screen":"scene","control":"spinner","state":{"kind":"activityIndicator","animating":true,"caption":""}}
            = tab ; ~ > U1Z1V-20 ; ~ > U1APPQ2
            < {"event":"control","screen":"scene","control":"spinner","state":{"kind":"activityIndicator","animating":false,"caption":""}}
            < {"event":"status","status":"current"}
            $ state
            <~ "loadSceneButton":{"kind":"button","title":"Recall","caption":""},"saveSceneButton":{"kind":"button","title":"Store","caption":""},"spinner":{"kind":"activityIndicator","animating":false,"caption":""}},"alert":null,"link":"open","status":"current","address":"192.168.1.50","unit":1,"retrying":false}
            $ "tab" "0" ; <~ "screen":"zone" ; <~ waiting ; <~ spinner ; = tab
            $ tab override ; <... ; ~ > U1APPQ3 ; <... ; $ state
            <~ {"reply":"state","ok":true,"screen":"override","tabs":["zone","group","override","scene"],"selected":2,"controls":{"ovrSwitch1":{"kind":"switch","on":false,"enabled":true,"caption":"Override 1")"},
        {"the tab on show selected again is stored and nothing appears", R"(
            $ set start_tab_preference 3 ; = set ; $ tab zone ; = tab ; ~ sent ; $ get start_tab_preference
            < {"reply":"get","ok":true,"settings":{"start_tab_preference":0}})"},
        {"a slide is one event, held to the range, its command leaves later, once", R"(
            $ slide volumeSlider -30.5 ; <~ "value":-30.5 ; = slide ; $ slide volumeSlider -30.5 ; = slide
            ~ sent ; ~ wait 0.75 ; ~ sent [U1Z1V-30]
            $ slide bassSlider 1e30 ; <~ "value":15.0 ; = slide ; $ slide bassSlider -1e300 ; <~ "value":-15.0 ; = slide
            $ slide volumeSlider +3 ; <~ "value":0.0 ; = slide
            $ slide bassSlider 1e5000 ; <~ "value":15.0 ; = slide)"},
        {"a switch, a row and a button", R"(
            $ switch muteSwitch on
            <~ {"event":"control","screen":"zone","control":"muteSwitch","state":{"kind":"switch","on":true,"enabled":true,"caption":"Mute"
            = switch ; ~ sent [U1Z1M1] ; $ switch muteSwitch on ; = switch ; ~ sent
            $ switch muteSwitch toggle ; <~ "on":false ; = switch ; ~ sent [U1Z1M0]
            ~ > U1I3N"Tuner" ; <~ "Tuner" ; ~ > U1I3N"Tuner"
            $ pick sourcePicker 2 ; <~ "selected":2 ; = pick ; $ pick sourcePicker 2 ; = pick ; ~ sent [U1Z1I3] [U1Z1I3]
            $ tab scene ; $ pick scenePicker 4 ; <... ; ~ sent [U1APPQ2]
            $ press saveSceneButton ; = press ; ~ sent [U1SP5SAVE])"},
        {"an item that changes beside the one on show, while watched", R"(
            ~ > U1Z3V-35 ; $ watch on ; = watch ; ~ > U1Z3V-35
            $ pick sourcePicker 1 ; <~ sourcePicker ; <~ "asked":{"input":"Source 2"} ; = pick
            $ slide bassSlider 1 ; <... ; $ slide volumeSlider -30 ; <... ; ~ wait 0.75 ; <~ "asked":{"volume":-30,
            ~ > U1Z3V-20
            <~ {"event":"item","screen":"zone","item":{"row":2,"name":"Zone 3","input":"Source 1","volume":-20,"text":"75%","mute":false,"known":[
            ~ > U1O1Z3 ; <~ zonePicker ; <~ "item":{"row":0,"name":"Zone 3" ; ~ > U1Z3V-25 ; <~ "row":0 ; $ watch 1 ; = watch \"1\" is neither on nor off
            $ watch off ; = watch ; ~ > U1Z3V-30)"},
        {"segments, and the controls they enable", R"(
            $ set advanced_mode_preference true ; $ app away ; $ app back ; ~ connect ; <... ; ~ sent [U1SERIAL0] [U1APPQ1]
            $ segment filterType1 0 ; = segment ; $ slide filterGain1 3 ; = slide filterGain1: disabled ; ~ sent
            $ segment filterType1 6 ; = segment filterType1: no segment 6; there are 0 to 5
            $ segment filterType1 5
            <~ {"event":"control","screen":"output","control":"filterType1","state":{"kind":"segmented","segments":["Bypass","High-pass","High shelf","Low-pass","Low shelf","Parametric"],"selected":5,"enabled":true,"caption":"Type 1"
            = segment ; ~ sent [U1O1B1P0F1000] ; ~ > U1O1B1P0F1000
            <~ {"event":"control","screen":"output","control":"filterFreq1","state":{"kind":"slider","value":3000.0,"min":1301.03,"max":4301.0303,"enabled":true,"caption":"Frequency 1"
            <~ filterGain1 ; <~ filterType1 ; <~ freqLabel1 ; <~ gainLabel1
            $ slide filterGain1 3 ; <~ "value":3.0 ; = slide)"},
        {"an alert is told each time it is asked for, one stands", R"(
            $ dismiss ; = dismiss no alert is on show ; ~ error
            < {"event":"link","link":"closed"}
            < {"event":"status","status":"offline"}
            < {"event":"alert","title":"Error","message":"Failed to connect to IP address 192.168.1.50.","button":"OK"}
            ~ network off ; $ tab group ; <~ "event":"screen" ; = tab ; <~ "event":"alert"
            $ state
            <~ "alert":{"title":"Error","message":"Failed to connect to IP address 192.168.1.50.","button":"OK"},"link":"closed","status":"offline","address":"192.168.1.50","unit":1,"retrying":false,"items":[{"row":0,"name":"Group 1","input":"Source 1","volume":-40,"text":"50%","mute":false,"power":true,"known":[]},{"row":1,
            $ dismiss ; = dismiss ; $ dismiss ; <~ "ok":false ; $ state ; <~ "alert":null,"link":"closed")"},
        {"the application leaves and comes back to another address", R"(
            $ app away ; <~ "link":"closed" ; <~ offline ; = app ; $ set ip_address_preference 10.0.0.9 ; = set
            $ app back ; = app ; <~ "link":"opening" ; ~ error ; <~ "link":"closed" ; <~ IP address 10.0.0.9.)"},
        {"single lifecycle events, and the mode that changes meanwhile", R"(
            $ set advanced_mode_preference true ; $ set start_tab_preference 2
            $ app resign-active ; $ app enter-background ; $ app enter-foreground ; <... ; $ app become-active
            < {"event":"screen","screen":"output","tabs":["output","group","override","scene"],"selected":0}
            < {"event":"screen","screen":"override","tabs":["output","group","override","scene"],"selected":2}
            = app ; <~ "link":"opening")"},
        {"a mode that changes under a screen that stays", R"(
            $ tab group ; <... ; ~ sent [U1APPQ4] ; $ set advanced_mode_preference true ; $ app away ; $ app back
            ~ connect ; <... ; ~ sent [U1SERIAL0] [U1APPQ4]
            $ app away ; $ app back ; ~ connect ; <... ; ~ sent [U1SERIAL0] [U1APPQ4])"},
        {"what a person stores is typed; the application is not told", R"(
            $ set unit_number_preference 4 ; = set ; $ set start_tab_preference -1 ; = set
            $ set polling_preference false ; = set ; $ set ip_address_preference "" ; = set
            $ unset serial_port_preference ; = unset ; $ get
            < {"reply":"get","ok":true,"settings":{"ip_address_preference":"","unit_number_preference":4,"polling_preference":false,"serial_port_preference":null,"start_tab_preference":-1,"advanced_mode_preference":null}}
            $ switch muteSwitch on ; <... ; ~ sent [U1Z1M1])"},
        {"names are UTF-8, escaped, and nothing breaks a line", R"(
            $ tab scene ; <... ; ~ > U1SP1N"Caf)"
                                                                "\xe9 \\ \x01\x7f \xc2\x85\x80"
                                                                R"("
            <~ "rows":["Café \\ \u0001\u007f Â\u0085\u0080")"},
        {"empty lines and comments are nothing, the rest is said in words", R"(
            $
            $ # tab nowhere
            $    
            $ quit now ; = quit quit stands alone
            $ help ; <~ {"reply":"help","ok":true,"commands":[{"name":"help","usage":"help","help":"lists the commands"},{"name")"},
        {"a row by its text, the first of several", R"(
            ~ > U1I3N"Tuner" ; ~ > U1I9N"Tuner" ; <... ; $ pick sourcePicker =Tuner ; <~ "selected":2 ; = pick ; ~ sent [U1Z1I3]
            $ pick sourcePicker "=Source 2" ; <~ "selected":1 ; = pick ; ~ sent [U1Z1I2]
            $ pick sourcePicker =Tune ; = pick sourcePicker: no row reads \"Tune\" ; $ pick sourcePicker = ; = pick sourcePicker: no row reads \"\"
            $ segment filterType1 =Bypass ; <~ no such control ; $ pick muteSwitch =Tuner ; = pick muteSwitch: a switch, not a picker)"},
        {"at a screen and an item, or not at all", R"(
            $ at zone switch muteSwitch on ; <~ "on":true ; = switch ; ~ sent [U1Z1M1]
            $ at group switch muteSwitch off ; = switch the zone screen is on show, not group
            ~ > U1Z1N"Hall" ; <~ "rows":[] ; $ at zone "=Hall" switch muteSwitch off ; = switch the zone screen shows no item yet, not \"Hall\"
            ~ > U1O1Z2 ; ~ > U1Z2N"Kitchen" ; <... ; $ at zone =Kitchen switch muteSwitch off ; <~ "on":false ; = switch ; ~ sent [U1Z1M0]
            $ at zone "=Living Room" switch muteSwitch on ; = switch the zone screen shows \"Kitchen\", not \"Living Room\" ; ~ sent
            $ at zone =kitchen state ; = state the zone screen shows \"Kitchen\", not \"kitchen\"
            $ at zone =Kitchen get start_tab_preference ; < {"reply":"get","ok":true,"settings":{"start_tab_preference":null}}
            $ at zone =Kitchen fly ; = fly fly: no such command; \"help\" lists those there are ; $ at zone tab ; = tab usage: tab NAME
            $ at zone wait 1 ; = wait wait: can't stand behind at ; $ at zone =Kitchen at zone state ; = at at: can't stand behind at
            $ at zone ; = at usage: at SCREEN [=TEXT] COMMAND ; $ at zone =Kitchen ; = at usage: at SCREEN [=TEXT] COMMAND
            $ tab override ; <... ; $ at override =Kitchen state ; = state the override screen has no items
            $ mute 0 on ; = mute the override screen has no items ; ~ > U1APPQ3 ; <... ; $ at override quit ; = quit ; exit 1)"},
        {"a finger rests on a slider, and what is said meanwhile is weighed", R"(
            $ hold volumeSlider ; <~ "value":-40.0 ; = hold ; $ slide volumeSlider -30 ; <~ "held":true,"wish":-30.0} ; = slide
            ~ > U1Z1V-35 ; <~ "value":-35.0 ; <~ "text":"56%" ; <~ muteSwitch ; $ release volumeSlider ; <~ "held":true,"wish":-30.0} ; = release
            ~ sent ; ~ wait 1.6 ; <~ "value":-30.0 ; ~ wait 1 ; <... ; ~ sent [U1Z1V-30] ; $ state ; <~ "value":-30.0,"min":-80.0,"max":0.0,"enabled":true,"caption":"Volume","
            $ hold volumeSlider ; <~ "held":true ; = hold ; ~ > U1Z1V-70 ; <~ "value":-70.0 ; <~ volumeLabel ; $ release volumeSlider ; <~ -70.0 ; = release ; ~ wait 2 ; ~ sent
            $ release volumeSlider ; = release ; $ release muteSwitch ; = release muteSwitch: a switch, not a slider
            $ hold volumeSlider ; <... ; ~ end ; <... ; $ slide volumeSlider -20 ; <~ "value":-20.0 ; = slide
            $ hold volumeSlider ; = hold volumeSlider: can't be held while the link is closed)"},
        {"bad input is answered in words, and nothing of it reaches the unit",
         R"(
            $ fly ; = fly fly: no such command; \"help\" lists those there are
            $ "" ; =  : no such command; \"help\" lists those there are
            $ pick zonePicker 1 2 ; = pick usage: pick CONTROL ROW
            $ slide volumeSlide -3 ; = slide volumeSlide: no such control on the zone screen
            $ slide volumeLabel -3 ; = slide volumeLabel: a label, not a slider
            $ press spinner ; = press spinner: an activity indicator, not a button
            $ segment muteSwitch 0 ; = segment muteSwitch: a switch, not a segmented control
            $ level 16 -3 ; = level zone items: no row 16; there are 0 to 15
            $ level =Attic -3 ; = level zone items: no row reads \"Attic\"
            $ hold muteSwitch ; = hold muteSwitch: a switch, not a slider
            $ pick sourcePicker 20 ; = pick sourcePicker: no row 20; there are 0 to 19
            $ pick sourcePicker -1 ; = pick sourcePicker: no row -1; there are 0 to 19
            $ pick sourcePicker 1.0 ; = pick sourcePicker: \"1.0\" is not a whole number
            $ pick sourcePicker 99999999999999999999 ; = pick sourcePicker: no row 99999999999999999999; there are 0 to 19
            $ slide volumeSlider -inf ; = slide volumeSlider: \"-inf\" is not a number
            $ slide volumeSlider -30dB ; = slide volumeSlider: \"-30dB\" is not a number
            $ slide volumeSlider +-3 ; = slide volumeSlider: \"+-3\" is not a number
            $ switch muteSwitch ON ; = switch muteSwitch: no position \"ON\"; there are on, off and toggle
            $ tab output ; = tab output: no such tab; there are zone, group, override and scene
            $ tab 4 ; = tab 4: no such tab; there are zone, group, override and scene
            $ get volume ; = get volume: no such setting; there are ip_address_preference, unit_number_preference, polling_preference, serial_port_preference, start_tab_preference and advanced_mode_preference
            $ set start_tab_preference 9223372036854775808 ; = set start_tab_preference: \"9223372036854775808\" is not a whole number
            $ set polling_preference yes ; = set polling_preference: \"yes\" is neither true nor false
            $ app start ; = app start: no such event; there are resign-active, enter-background, enter-foreground, become-active, away and back
            $ wait long ; = wait \"long\" is neither a time in seconds nor one of current, answer, open and closed
            $ wait nan ; = wait \"nan\" is neither a time in seconds nor one of current, answer, open and closed
            $ wait -1 ; = wait \"-1\" is neither a time in seconds nor one of current, answer, open and closed
            $ wait 3 4 ; = wait \"3\" can't be waited for; there are current, answer, open and closed
            $ wait open soon ; = wait \"soon\" is not a time in seconds
            $ wait open 1e10 ; = wait \"1e10\" is not a time in seconds
            $ tab "zone ; = tab a quote is opened and not closed
            $ tab "zo"ne ; = tab a blank is missing behind a closing quote
            $ tab zo"ne ; = tab a quote inside a word: put the whole word in quotes, and \\\" for the quote
            $ tab )"
         "\xff"
         R"( ; = tab this line is not UTF-8 text
            ~ wait 9 ; ~ sent)"},
        {"a wait holds back commands, not events", R"(
            $ wait 0.5 ; $ tab 9 ; ~ wait 0.499 ; ~ > U1Z1V-30 ; <~ volumeSlider ; <~ volumeLabel ; <~ muteSwitch
            ~ wait 0.001 ; = wait ; <~ "reply":"tab","ok":false ; $ wait 0 ; ~ wait 0 ; = wait)"},
        {"an answer, one that is there already, one that does not come", R"(
            $ tab group ; $ wait answer 2 ; $ dismiss ; <... ; ~ wait 1.9 ; ~ > U2APPQ4 ; ~ > U1APPQ4
            <~ spinner ; <~ current ; = wait ; <~ "reply":"dismiss" ; ~ wait 9
            $ wait answer ; = wait
            $ tab zone ; $ wait answer ; <... ; ~ wait 4.999 ; ~ wait 0.001
            <~ "silent" ; = wait the unit has not answered in time; the link is open)"},
        {"the status becomes current, is already, or does not", R"(
            $ wait current ; = wait ; $ tab group ; $ wait current ; $ tab group ; <... ; ~ wait 9.9 ; <~ silent ; ~ > U1APPQ4
            <~ spinner ; <~ current ; = wait ; = tab ; ~ end ; <... ; $ wait current 0.5 ; ~ wait 0.5 ; = wait the status is offline, not current
            $ app away ; $ app back ; $ wait current ; <... ; ~ connect ; <... ; ~ wait 10 ; <~ silent ; = wait the status is silent, not current)"},
        {"a screen that is not answered is left for another: nothing is current in between", R"(
            $ tab group ; <~ "screen" ; <~ waiting ; <~ spinner ; = tab ; $ tab scene ; <~ "screen" ; <~ spinner ; = tab
            ~ wait 5 ; <~ silent ; $ tab group ; <~ "screen" ; <~ waiting ; = tab)"},
        {"a link, and the query that it starts", R"(
            $ app away ; $ wait closed ; $ app back ; $ wait open 1 ; $ wait answer ; <... ; ~ wait 0.9 ; ~ connect
            <~ "link":"open" ; <~ waiting ; <~ "animating":true ; = wait
            ~ > U1APPQ0 ; <~ "animating":false ; <~ current ; = wait)"},
        {"a link that does not open", R"(
            ~ end ; <~ "link":"closed" ; <~ offline ; $ wait open 0.25 ; ~ wait 0.25 ; = wait the link is still closed, not open
            $ wait closed 0 ; = wait)"},
        {"the end of the input is behind the last command", R"(
            $ wait 3 ; $part switch muteSwitch on ; $end ; ~ wait 2.9 ; ~ sent
            ~ wait 0.1 ; = wait ; <~ muteSwitch ; = switch ; ~ sent [U1Z1M1] ; exit 0)"},
        {"quit", "~ away ; <... ; $part quit ; $end ; = quit ; exit 0"},
        {"nothing behind quit", "$ wait 1 ; $ quit ; $ tab group ; ~ wait 1 ; = wait ; = quit ; exit 0"},
        {"quit after an error", "$ fly ; $ quit ; <~ fly ; = quit ; exit 1"},
        {"an end after an error", "~ away ; $part fly ; $end ; <... ; exit 1"},
        {"an end", "$end ; exit 0"},
        {"a signal during a wait", "~ away ; <... ; $ wait 1000 ; $signal ; exit 0"},
        {"nobody reads any more: the commands are carried out all the same",
         "$unread ; $ state ; $ switch muteSwitch on ; $part fly ; $end ; ~ sent [U1Z1M1] ; exit 1"},
        {"a signal after an error", "$ fly ; $signal ; <~ fly ; exit 1"},
    };
    for (const auto& [name, script] : scenarios) {
        SCOPED_TRACE(name);
        Session session;
        session.start();
        EXPECT_EQ(session.play(script), "");
    }
}

// A flood of commands leaves turns of the main loop to the unit.
TEST(Console, AFloodOfCommandsLeavesRoomForReports) {
    Session session;
    session.start();
    std::string flood;
    for (int i = 0; i < 500; ++i)
        flood += "dismiss\n";
    auto& remote = session.remote;
    // Behind the first turn's commands.
    remote.queue.post([&] { remote.queue.post([&] { remote.report("U1Z1V-30"); }); });
    session.type(flood);
    const auto printed = session.read();
    EXPECT_LT(printed.find("volumeSlider"), printed.size() / 4) << "the report waited for the commands";
}

// A reader that is behind holds up neither the commands nor the reports: it gets every reply, and of each control the
// newest state. What comes in which order, the fuzz target of the console checks.
TEST(Console, GathersControlsForASlowReader) {
    Session session;
    session.start();
    for (int report = 0; report < 6000; ++report)
        session.remote.report(report % 2 == 0 ? "U1Z1V-30" : "U1Z1V-31");
    session.remote.report("U1Z1V-32");
    session.type("switch muteSwitch on\ntab group\n");
    EXPECT_EQ(session.remote.sent(), (std::vector<std::string>{"[U1Z1M1]", "[U1APPQ4]"}));
    QByteArray printed;
    for (auto more = session.read(); !more.empty(); more = session.read()) {
        printed += more.c_str();
        EXPECT_EQ(session.remote.play("wait 0.005"), "");
        session.settle();
    }
    EXPECT_LT(printed.count("volumeSlider"), 3000);
    EXPECT_EQ(printed.count("\"value\":-32.0"), 1);
    EXPECT_EQ(printed.count("\"reply\""), 2);
}

} // namespace

#include "Remote.h"
#include "model/FrequencyScale.h"

#include <gtest/gtest.h>

#include <regex>

namespace lumbra::test {

void playOn(const std::string& tab, std::span<const Scenario> scenarios) {
    const std::string mode = tab == "output" ? "set advanced_mode_preference true ; away ; back ; " : "";
    EXPECT_EQ(playAll(scenarios, mode + "connect ; tab " + tab), "");
}

// Three screens share these rules, so all three are played; ITEM stands for the item's letter, PICKER for its picker,
// NAME for its default name, and POWER for what a row tells of its power.
TEST(ItemScreens, ShareTheirRules) {
    const Scenario scenarios[] = {
        {"a fresh screen shows its layout", R"(
            show volumeSlider -40 ; show muteSwitch off ; show sourcePicker 0 Source 1 of 20 ; pick PICKER 1
            show volumeSlider -40 ; show muteSwitch off ; show sourcePicker 0 Source 1 of 20)"},
        {"a report for another item changes the model alone, and a volume unmutes", R"(
            > U1ITEM5I7 ; > U1ITEM5M1 ; show sourcePicker 0 Source 1 of 20 ; show muteSwitch off
            > U1ITEM5V-30 ; > U1ITEM5M1 ; show volumeSlider -40 ; pick PICKER 4 ; show volumeSlider -30 ; show muteSwitch on
            show sourcePicker 6 Source 7 of 20 ; > U1ITEM5V-20 ; show muteSwitch off ; show volumeSlider -20 ; sent)"},
        {"foreign units and items out of range change nothing", R"(
            > U2ITEM1V-10 ; > U1ITEM0V-10 ; > U1ITEM17V-10 ; > U1ITEM1V5 ; > U1ITEM1V-81 ; > U1ITEM1I0 ; > U1ITEM1I21
            > U2ITEM1M1 ; > U1ITEM0M1 ; > U1ITEM17M1 ; > U1ITEM0I2 ; > U1ITEM17I2 ; > U2ITEM1N"Other" ; > U1ITEM0N"Other"
            show volumeSlider -40 ; show sourcePicker 0 Source 1 of 20 ; show muteSwitch off
            > U1ITEM1V-80 ; show volumeSlider -80)"},
        {"an input pick is sent at once and again when repeated", R"(
            pick PICKER 2 ; pick sourcePicker 7 ; sent [U1ITEM3I8] ; pick sourcePicker 7 ; sent [U1ITEM3I8]
            pick PICKER 0 ; show sourcePicker 0 Source 1 of 20 ; pick PICKER 2 ; show sourcePicker 7 Source 8 of 20)"},
        {"input names and flags keep the selection", R"(
            > U1ITEM1I3 ; > U1I3N"Tuner" ; show sourcePicker 2 Tuner of 20
            > U1I4STEREO1 ; show sourcePicker 2 Tuner of 20
            > U1I21N"No" ; > U1I0STEREO1 ; > U1I20N"Last" ; > U1ITEM1I20 ; show sourcePicker 19 Last of 20
            > U1ITEM1I1 ; show sourcePicker 0 Source 1 of 20 ; sent)"},
        {"mute is sent at once and the model waits for the unit", R"(
            switch muteSwitch on ; sent [U1ITEM1M1]
            pick PICKER 1 ; show muteSwitch off ; pick PICKER 0 ; show muteSwitch off
            switch muteSwitch on ; switch muteSwitch off ; sent [U1ITEM1M1] [U1ITEM1M0])"},
        {"the volume is sent 0.75 s after the move, once", R"(
            slide volumeSlider -39.7 ; slide volumeSlider -20.6 ; wait 0.749 ; sent ; wait 0.001 ; sent [U1ITEM1V-20]
            wait 5 ; sent)"},
        {"a long drag leaves a trail without repeats", R"(
            slide volumeSlider -30 ; wait 0.5 ; slide volumeSlider -29.5 ; wait 0.5 ; sent [U1ITEM1V-29]
            slide volumeSlider -29.1 ; slide volumeSlider -25 ; wait 2 ; sent [U1ITEM1V-25])"},
        {"away and back within the time sends nothing, nor does a move before a pick", R"(
            slide volumeSlider -10 ; wait 0.7 ; slide volumeSlider -40.9 ; wait 2 ; sent
            slide volumeSlider -10 ; pick PICKER 3 ; wait 2 ; sent)"},
        {"a deferred step after the tab has changed is still sent, over the open link", R"(
            slide volumeSlider -10 ; tab scene ; sent [U1APPQ2] ; wait 1 ; sent [U1ITEM1V-10])"},
        {"a deferred step over a closed link stores and sends nothing", R"(
            slide volumeSlider -10 ; end ; wait 1 ; sent ; alerts 0)"},
        {"a deferred step meets a report that has come meanwhile", R"(
            slide volumeSlider -10 ; > U1ITEM1V-20 ; wait 1 ; sent ; show volumeSlider -20)"},
        {"a value is known once a report has given it, item by item", R"(
            > U1ITEM1V5 ; > U2ITEM1I3 ; > U1ITEM1I21 ; > U1ITEM17M1 ; known ; row 0 NAME 1?, Source 1?, -40?, off?POWER
            > U1ITEM1I3 ; known sourcePicker ; > U1ITEM1V-30 ; known sourcePicker volumeSlider volumeLabel muteSwitch
            row 0 NAME 1?, Source 3, -30, offPOWER ; > U1ITEM2M1 ; row 1 NAME 2?, Source 1?, -40?, onPOWER
            pick PICKER 1 ; known muteSwitch ; pick PICKER 2 ; known ; > U1I1N"CD" ; known ; row 2 NAME 3?, CD?, -40?, off?POWER
            pick PICKER 0 ; known sourcePicker volumeSlider volumeLabel muteSwitch)"},
        {"asked is what has left and was not reported since", R"(
            slide volumeSlider -20.6 ; row 0 NAME 1?, Source 1?, -40?, off?POWER
            wait 1 ; row 0 NAME 1?, Source 1?, -40?, off?POWER, asked -20 ; pick sourcePicker 4
            > U1ITEM1V1 ; > U1ITEM1M0 ; row 0 NAME 1?, Source 1?, -40?, offPOWER, asked Source 5, asked -20
            > U1ITEM1V-19 ; > U1I5N"CD" ; row 0 NAME 1?, Source 1?, -19, offPOWER, asked CD
            > U1ITEM1I1 ; row 0 NAME 1?, Source 1, -19, offPOWER
            write 0 ; pick sourcePicker 7 ; write -1 ; slide volumeSlider -50 ; wait 1 ; row 0 NAME 1?, Source 1, -19, offPOWER)"},
        {"a row moves its own item, whichever is selected", R"(
            slide volume@1 -20.6 ; slide volume@2 -99 ; show volumeSlider -40 ; pick PICKER 3 ; wait 0.749 ; sent
            wait 0.001 ; sent [U1ITEM2V-20] [U1ITEM3V-80] ; row 1 NAME 2?, Source 1?, -40?, off?POWER, asked -20
            slide volume@1 -30 ; wait 0.5 ; slide volume@1 -29.5 ; wait 0.5 ; sent [U1ITEM2V-29]
            slide volume@1 -29.1 ; slide volume@1 -25 ; wait 2 ; sent [U1ITEM2V-25] ; slide volume@1 -25.9 ; wait 1 ; sent)"},
        {"a row's move outlives picks, of its item and of others", R"(
            slide volume@1 -20.6 ; pick PICKER 1 ; show volumeSlider -20.6 ; pick PICKER 0 ; show volumeSlider -40
            show volume@1 -20.6 ; wait 1 ; sent [U1ITEM2V-20] ; pick PICKER 1 ; show volumeSlider -20 ; show volume@1 -20)"},
        {"the selected row and the screen's slider are one value", R"(
            slide volumeSlider -10 ; show volume@0 -10 ; pick PICKER 1 ; show volume@0 -40 ; wait 1 ; sent
            slide volume@1 -15 ; show volumeSlider -15 ; wait 0.75 ; sent [U1ITEM2V-15] ; wait 1 ; sent
            > U1ITEM2V-5 ; show volume@1 -5 ; show volume@0 -40)"},
        {"a report wins over a row's move", R"(
            slide volume@1 -10 ; > U1ITEM2V-20 ; show volume@1 -20 ; pick PICKER 1 ; show volumeSlider -20 ; wait 1 ; sent
            slide volume@1 -10 ; > U1ITEM2V-30 ; slide volumeSlider -15 ; pick PICKER 0 ; show volume@1 -30 ; wait 1 ; sent)"},
        {"a row is muted at once, and once", R"(
            switch mute@1 on ; switch mute@1 on ; sent [U1ITEM2M1] ; show muteSwitch off
            row 1 NAME 2?, Source 1?, -40?, off?POWER ; > U1ITEM2V-30 ; show mute@1 off ; > U1ITEM2M1 ; show mute@1 on
            switch mute@0 on ; sent [U1ITEM1M1] ; show muteSwitch on ; switch muteSwitch off ; sent [U1ITEM1M0]
            show mute@0 off ; switch mute@0 on ; sent [U1ITEM1M1] ; pick PICKER 1 ; show mute@0 off ; show muteSwitch on)"},
    };
    for (const std::string tab : {"zone", "output", "group"})
        for (const auto& [name, rule] : scenarios) {
            const std::string letter(1, static_cast<char>(std::toupper(tab[0])));
            std::string script = rule;
            for (const auto& [word, meant] : {std::pair("ITEM", letter), std::pair("PICKER", tab + "Picker"),
                                              std::pair("NAME", letter + tab.substr(1)),
                                              std::pair("POWER", std::string(tab == "zone" ? "" : ", on?"))})
                script = std::regex_replace(script, std::regex(word), meant);
            playOn(tab, std::array{Scenario{name, script.c_str()}});
        }
}

TEST(ZoneScreen, PlaysItsOwn) {
    const Scenario scenarios[] = {
        {"texts are whole and truncated toward zero", R"(
            > U1Z1V-80 ; show volumeLabel 0% ; > U1Z1V-41 ; show volumeLabel 48% ; > U1Z1V-30 ; show volumeLabel 62%
            > U1Z1V0 ; show volumeLabel 100% ; > U1Z1BASS7 ; show bassLabel 46% ; show bassSlider 7
            > U1Z1TREB-7 ; show trebleLabel -46% ; > U1Z1TREB-15 ; show trebleLabel -100%)"},
        {"tone out of range is dropped", R"(
            > U1Z1BASS16 ; > U1Z1BASS-16 ; > U1Z1TREB16 ; > U1Z1TREB-99 ; show bassSlider 0 ; show trebleSlider 0
            > U1Z1BASS-15 ; > U1Z1TREB15 ; show bassSlider -15 ; show trebleSlider 15)"},
        {"the maximum volume goes down and up again", R"(
            > U1Z1MV-20 ; > U1Z1V-10 ; show volumeSlider -40 ; > U1Z1V-25 ; show volumeSlider -25
            > U1Z1MV5 ; > U1Z1MV-81 ; > U1Z17MV0 ; > U1Z1V-10 ; show volumeSlider -25
            > U1Z1MV0 ; > U1Z1V-10 ; show volumeSlider -10
            > U1Z1MV-80 ; > U1Z1V-79 ; show volumeSlider -10 ; > U1Z1V-80 ; show volumeSlider -80)"},
        {"the limit is the reported maximum of the zone", R"(
            limit volumeSlider 0 ; > U1Z2MV-20 ; > U1Z2MV5 ; limit volumeSlider 0 ; limit volume@1 -20
            pick zonePicker 1 ; limit volumeSlider -20 ; > U1Z2MV-10 ; limit volumeSlider -10)"},
        {"loudness and tone are known each on its own", R"(
            unknown sourcePicker volumeSlider volumeLabel muteSwitch loudnessSwitch bassSlider bassLabel trebleSlider trebleLabel
            > U1Z1BASS16 ; > U1Z1LD0 ; known loudnessSwitch ; > U1Z1TREB0 ; known loudnessSwitch trebleSlider trebleLabel
            > U1Z2BASS3 ; pick zonePicker 1 ; known bassSlider bassLabel)"},
        {"a row's move stays with its zone when rows come and go", R"(
            slide volume@8 -20 ; > U1O1Z9 ; > U1O1Z2 ; > U1Z2N"Bar" ; row 0 Bar, Source 1?, -40?, off? ; show volume@1 -20
            slide volume@0 -30 ; wait 1 ; sent [U1Z9V-20] [U1Z2V-30])"},
        {"a name before any output empties the picker, outputs refill it in order", R"(
            > U1Z1N"Kitchen" ; show zonePicker none ; > U1O1Z6 ; show zonePicker 0 Zone 6 of 1
            > U1O16Z1 ; show zonePicker 0 Kitchen of 2
            > U1O17Z2 ; > U1O1Z17 ; > U1O0Z3 ; > U1O1Z0 ; show zonePicker 0 Kitchen of 2
            > U1O2Z6 ; pick zonePicker 1 ; switch muteSwitch on ; sent [U1Z6M1])"},
        {"the current zone may be hidden and stays meant", R"(
            pick zonePicker 3 ; > U1O1Z9 ; > U1O2Z11 ; show zonePicker 0 Zone 9 of 2
            > U1Z4V-12 ; show volumeSlider -12 ; switch loudnessSwitch on ; sent [U1Z4LD1]
            pick zonePicker 0 ; show volumeSlider -40)"},
        {"loudness, bass and treble of the picked zone", R"(
            > U1Z2LD1 ; > U1Z2BASS-3 ; > U1Z2TREB15 ; > U1Z17LD1 ; > U1Z0LD1 ; show loudnessSwitch off
            > U1Z17BASS3 ; > U1Z0BASS3 ; > U1Z17TREB3 ; > U1Z0TREB3 ; show bassSlider 0 ; show trebleSlider 0
            pick zonePicker 1 ; show loudnessSwitch on ; show bassSlider -3 ; show bassLabel -20%
            show trebleSlider 15 ; show trebleLabel 100%)"},
        {"bass and treble truncate and settle each on its own", R"(
            slide bassSlider 4.6 ; slide trebleSlider -7.9 ; wait 0.75 ; sent [U1Z1BASS4] [U1Z1TREB-7]
            slide bassSlider 4.2 ; wait 1 ; sent ; show bassLabel 0%)"},
        {"the label waits for the unit", R"(
            slide volumeSlider -20 ; wait 1 ; sent [U1Z1V-20] ; show volumeLabel 50%
            > U1Z1V-20 ; show volumeLabel 75%)"},
        {"names of sixteen bytes become UTF-8", "> U1O1Z1 ; > U1Z1N\"Caf\xE9\x80 \x7F 1234567a\"\n"
                                                "show zonePicker 0 Caf\xC3\xA9\xC2\x80 \x7F 1234567a of 1"},
    };
    playOn("zone", scenarios);
}

TEST(OutputScreen, PlaysItsOwn) {
    const Scenario scenarios[] = {
        {"the maximum is only ever lowered", R"(
            > U1O1MV-20 ; > U1O1MV-10 ; > U1O0MV-80 ; > U1O17MV-80 ; > U1O1V-15 ; show volumeSlider -40
            limit volumeSlider -20 ; limit volume@1 0 ; > U1O1V-25 ; show volumeLabel -25 dB
            > U1O1MV-80 ; > U1O1V-79 ; show volumeSlider -25 ; > U1O1V-80 ; show volumeSlider -80)"},
        {"power on brings the volume into the turn-on range", R"(
            > U1O1MNTO-50 ; > U1O1MXTO-20 ; > U1O1V-70 ; > U1O1M1
            > U1O1P1 ; show volumeSlider -50 ; show volumeLabel -50 dB ; show muteSwitch off
            > U1O1V-5 ; > U1O1P1 ; show volumeSlider -20)"},
        {"a minimum above the maximum yields to the maximum", R"(
            > U1O1MNTO-10 ; > U1O1MXTO-30 ; > U1O1P1 ; show volumeSlider -30)"},
        {"limits above the maximum or below -80 are refused", R"(
            > U1O1MV-30 ; > U1O1MXTO-20 ; > U1O1MNTO-20 ; > U1O1MXTO-81
            > U1O1V-35 ; > U1O1P1 ; show volumeSlider -35 ; > U1O1MNTO-30 ; > U1O1P1 ; show volumeSlider -30
            > U1O1MXTO-80 ; > U1O1P1 ; show volumeSlider -80)"},
        {"power off disables mute and keeps volume and mute", R"(
            > U1O1M1 ; > U1O1P0 ; show powerSwitch off ; show muteSwitch - on ; show volumeSlider -40
            > U1O1M0 ; show muteSwitch - off ; > U1O2P1 ; > U1O17P1 ; show muteSwitch - off
            pick outputPicker 1 ; show muteSwitch - off ; show powerSwitch on
            pick outputPicker 15 ; show powerSwitch on ; pick outputPicker 0 ; show powerSwitch off)"},
        {"a row's mute is disabled while its output is off, the selected one's also with the screen's", R"(
            > U1O2P0 ; show mute@1 - off ; > U1O1P0 ; show mute@0 - off ; show mute@2 off
            pick outputPicker 2 ; show muteSwitch - off ; show mute@2 - off ; pick outputPicker 1 ; show mute@2 off
            > U1O2P1 ; show mute@1 off ; show muteSwitch off ; show mute@0 - off ; pick outputPicker 0 ; show mute@0 - off)"},
        {"power on makes mute known, and a volume only where one was", R"(
            > U1O1MNTO-30 ; > U1O1P1 ; known muteSwitch powerSwitch ; show volumeSlider -30
            row 0 Output 1?, Source 1?, -40?, off, on ; > U1O1V-35 ; slide volumeSlider -20 ; wait 1 ; > U1O1M1
            > U1O1P1 ; row 0 Output 1?, Source 1?, -30, off, on, asked -20 ; > U1O2P0 ; row 1 Output 2?, Source 1?, -40?, off?, off)"},
        {"a band's values are known as far as its reports go", R"(
            > U1O1B1HPF100 ; known filterType1 filterFreq1 freqLabel1 ; > U1O1B2P16F100 ; > U1O1B7BYPASS ; > U1O1B1BYPASS
            known filterType1 filterType7 filterFreq1 freqLabel1 ; > U1O2B3P3F100 ; > U1O1B7HS0F90
            known filterType1 filterType7 filterFreq1 filterFreq7 freqLabel1 freqLabel7 filterGain7 gainLabel7
            pick outputPicker 1 ; known filterType3 filterFreq3 freqLabel3 filterGain3 gainLabel3)"},
        {"power is sent and left to the unit", R"(
            switch powerSwitch off ; sent [U1O1P0] ; show muteSwitch off
            > U1O1V-80 ; > U1O1P1 ; show volumeSlider -80)"},
        {"bands by type: segment, enabled sliders, labels", R"(
            > U1O1B1HS-6F8000 ; show filterType1 2 ; show filterFreq1 3903.09 ; show freqLabel1 8 kHz
            show filterGain1 -6 ; show gainLabel1 -6 dB
            > U1O1B1HPF999 ; show filterType1 1 ; show gainLabel1 Gain ; show filterGain1 - -6 ; show freqLabel1 999 Hz
            > U1O1B1BYPASS ; show filterType1 0 ; show filterFreq1 - 2999.5657 ; show gainLabel1 Gain
            > U1O1B7P15F20 ; show filterType7 5 ; show filterFreq7 1301.03 ; show gainLabel7 15 dB)"},
        {"a band out of range changes nothing", R"(
            > U1O1B2HPF0 ; > U1O1B2LPF20001 ; > U1O1B2HS16F1000 ; > U1O1B2LS-16F1000 ; > U1O1B2P3F0
            > U1O17B2BYPASS ; > U1O0B2HPF100 ; show filterType2 0
            > U1O1B2P-15F20000 ; show filterType2 5 ; show gainLabel2 -15 dB ; show freqLabel2 20 kHz
            > U1O1B2HPF1 ; show filterFreq2 1301.03 ; show freqLabel2 1 Hz)"},
        {"a hidden output's bands show when it is picked, gain in dB", R"(
            > U1O5B7LPF12500 ; > U1O5B1LS4F100 ; show filterType7 0 ; show gainLabel1 0 dB
            pick outputPicker 4 ; show filterType7 3 ; show freqLabel7 12 kHz
            show gainLabel7 0 dB ; show filterGain7 - 0 ; show gainLabel1 4 dB ; show filterGain1 4
            pick outputPicker 0 ; show filterType7 0 ; show filterFreq7 - 3000)"},
        {"a type sends the whole band at once and moves no other control", R"(
            > U1O1B2HS-6F8000 ; segment filterType2 1 ; sent [U1O1B2HPF8000]
            segment filterType2 4 ; sent [U1O1B2LS-6F8000] ; show filterGain2 -6
            segment filterType2 0 ; sent [U1O1B2BYPASS] ; segment filterType2 0 ; sent)"},
        {"frequency and gain settle after 0.75 s", R"(
            > U1O1B2P-3F1000 ; slide filterFreq2 3000 ; wait 1 ; sent
            slide filterFreq2 2000 ; slide filterGain2 -3.7 ; wait 1 ; sent [U1O1B2P-3F100]
            slide filterGain2 4.99 ; slide filterFreq2 9999 ; wait 0.75 ; sent [U1O1B2P4F100] [U1O1B2P4F20000])"},
        {"each band is its own", R"(
            > U1O1B1P0F1000 ; > U1O1B7P0F1000 ; slide filterGain7 3 ; slide filterGain1 5
            wait 1 ; sent [U1O1B7P3F1000] [U1O1B1P5F1000])"},
        {"a gain moved on what has become a high-pass is stored and not sent", R"(
            > U1O1B2P0F1000 ; slide filterGain2 6 ; > U1O1B2HPF500 ; wait 1 ; sent [U1O1B2HPF500]
            segment filterType2 5 ; sent [U1O1B2P6F500])"},
        {"names and flags keep the output on show", R"(
            pick outputPicker 1 ; > U1O5N"Terrace" ; > U1O9STEREO1 ; > U1O17STEREO1 ; > U1O0STEREO1
            show outputPicker 1 Output 2 of 16 ; > U1O2N"Bar" ; show outputPicker 1 Bar of 16)"},
    };
    playOn("output", scenarios);
}

TEST(OutputScreen, FrequencyScaleRoundTripsEveryHertz) {
    for (int frequency = 1; frequency <= 20000; ++frequency)
        ASSERT_EQ(sliderToFrequency(frequencyToSlider(frequency)), frequency);
    EXPECT_EQ(sliderToFrequency(4301.03F), 20000);
}

TEST(OtherScreens, PlayTheirOwn) {
    const Scenario groups[] = {
        {"power follows the unit and is sent", R"(
            row 1 Group 2?, Source 1?, -40?, off?, on? ; > U1G1P0 ; > U1G2P1 ; row 1 Group 2?, Source 1?, -40?, off?, on
            > U1G0P0 ; > U1G11P0 ; show powerSwitch off ; switch powerSwitch on ; sent [U1G1P1]
            known powerSwitch ; pick groupPicker 1 ; show powerSwitch on ; pick groupPicker 0 ; show powerSwitch off
            row 0 Group 1?, Source 1?, -40?, off?, off ; unknown sourcePicker volumeSlider volumeLabel muteSwitch)"},
        {"names reload and keep the row", R"(
            show groupPicker 0 Group 1 of 10 ; pick groupPicker 2 ; show groupPicker 2 Group 3 of 10
            > U1G3N"Back Yard" ; > U1G11N"No" ; show groupPicker 2 Back Yard of 10
            > U1G3V-10 ; show volumeLabel 87% ; limit volumeSlider 0 ; row 2 Back Yard, Source 1?, -10, off, on?)"},
    };
    playOn("group", groups);
    const Scenario overrides[] = {
        {"either way is operated, and the switch waits for the unit", R"(
            switch ovrSwitch10 on ; sent [U1AO10A2] ; switch ovrSwitch10 off ; sent [U1AO10A2]
            switch ovrSwitch1 on ; sent [U1AO1A2] ; show ovrSwitch1 on ; > U1AO1A0 ; show ovrSwitch1 off ; sent)"},
        {"states set their switch alone", R"(
            > U1AO4A1 ; > U1AO11A1 ; > U1AO0A1 ; > U2AO5A1
            show ovrSwitch4 on ; show ovrSwitch5 off ; show ovrSwitch10 off ; > U1AO2A0 ; known ovrSwitch2 ovrSwitch4
            unknown ovrSwitch1 ovrSwitch3 ovrSwitch5 ovrSwitch6 ovrSwitch7 ovrSwitch8 ovrSwitch9 ovrSwitch10
            tab zone ; tab override ; show ovrSwitch4 on)"},
    };
    playOn("override", overrides);
    const Scenario scenes[] = {
        {"the first scene without a pick", R"(
            press loadSceneButton ; sent [U1SP1LOAD] ; show scenePicker 0 Scene 1 of 10)"},
        {"names keep the pick and stay", R"(
            pick scenePicker 4 ; sent ; > U1SP2N"Party" ; > U1SP11N"No" ; > U1SP0N"No" ; > U2SP5N"No"
            show scenePicker 4 Scene 5 of 10 ; press saveSceneButton ; sent [U1SP5SAVE]
            pick scenePicker 1 ; tab zone ; tab scene ; show scenePicker 1 Party of 10 ; known ; unknown)"},
        {"nothing is sent over a closed link", "end ; press saveSceneButton ; sent ; alerts 0"},
    };
    playOn("scene", scenes);
}

} // namespace lumbra::test

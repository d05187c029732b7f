import QtQuick
import QtQuick.Controls.Basic
import QtTest
import Lumbra.Touch

// The window over the real application: presses, drags, wheel turns and keys, and what they send.
TestCase {
    id: test

    property Main window: null

    name: "Touch"
    when: windowShown

    Component {
        id: mainWindow

        Main {
            visible: true
        }
    }

    function open(width, height, settings, connected) {
        harness.start(settings || "", connected === undefined ? true : connected);
        window = createTemporaryObject(mainWindow, test, {
            app: harness.app,
            width: width || 360,
            height: height || 640
        });
        verify(window);
        waitForRendering(window.contentItem);
        harness.sent();
    }
    function cleanup() {
        if (window) {
            window.destroy();
            window = null;
            wait(0);
        }
        harness.stop();
        Theme.textScale = 1;
    }
    function find(name) {
        const item = findChild(window.contentItem, name);
        verify(item, name);
        return item;
    }
    function sentNow() {
        return harness.sent().join(" ");
    }
    // Everything that sliders have put off.
    function sentLater() {
        harness.pass(800);
        return sentNow();
    }
    function play(script) {
        compare(harness.play(script), "");
    }
    function listOf(name) {
        return findChild(find(name), "list");
    }

    // A press on the track, far from the thumb: a jump here would be a blast.
    function test_track_never_jumps() {
        open();
        const slider = find("volumeSlider");
        mouseClick(slider, slider.width - 4, slider.height / 2);
        mouseClick(slider, 4, slider.height / 2);
        compare(sentLater(), "");
        compare(slider.value, -40);
    }

    function test_drag_is_relative() {
        open();
        const slider = find("volumeSlider");
        const y = slider.height / 2;
        mousePress(slider, 20, y);
        for (let x = 20; x <= 60; x += 4)
            mouseMove(slider, x, y);
        const value = slider.value;
        verify(value > -40 && value < -20, value);
        // The finger stays; the unit speaks.
        play("> U1Z1V-70");
        compare(slider.value, value);
        harness.sent();
        mouseRelease(slider, 60, y);
        compare(slider.value, value);
        compare(sentLater(), "[U1Z1V" + Math.trunc(value) + "]");
    }

    function test_touch_drag_two_fingers() {
        open(1280, 800);
        const bass = findChild(find("bass"), "levelSlider");
        const treble = findChild(find("treble"), "levelSlider");
        const touch = touchEvent(window);
        touch.press(1, bass, 100, 20).commit();
        touch.press(2, treble, 100, 20).commit();
        for (let step = 1; step <= 10; ++step)
            touch.move(1, bass, 100 + 6 * step, 20).move(2, treble, 100 - 6 * step, 20).commit();
        verify(bass.value > 0 && treble.value < 0, bass.value + " " + treble.value);
        touch.release(1, bass, 160, 20).stationary(2).commit();
        touch.release(2, treble, 40, 20).commit();
    }

    function test_keys_and_wheel_data() {
        return [
            { tag: "right", key: Qt.Key_Right, value: -39 },
            { tag: "up", key: Qt.Key_Up, value: -39 },
            { tag: "left", key: Qt.Key_Left, value: -41 },
            { tag: "down", key: Qt.Key_Down, value: -41 },
            { tag: "page up", key: Qt.Key_PageUp, value: -35 },
            { tag: "page down", key: Qt.Key_PageDown, value: -45 },
            { tag: "home", key: Qt.Key_Home, value: -40 },
            { tag: "end", key: Qt.Key_End, value: -40 },
            { tag: "wheel up", wheel: 120, value: -39 },
            { tag: "wheel down", wheel: -240, value: -42 },
            { tag: "part of a notch", wheel: 60, value: -40 }
        ];
    }
    function test_keys_and_wheel(data) {
        open();
        const slider = find("volumeSlider");
        slider.forceActiveFocus();
        if (data.key)
            keyClick(data.key);
        else
            mouseWheel(slider, 30, 30, 0, data.wheel);
        compare(slider.value, data.value);
        compare(sentLater(), data.value === -40 ? "" : "[U1Z1V" + data.value + "]");
    }

    function test_tap_on_wheel_rows() {
        open();
        const list = listOf("sourcePicker");
        const row = find("sourcePicker").rowHeight;
        mouseClick(list, list.width / 2, row * 1.5);
        compare(sentNow(), "[U1Z1I1]", "the middle row is picked again");
        mouseClick(list, list.width / 2, row * 2.5);
        compare(sentNow(), "[U1Z1I2]", "the row below turns to the middle");
        tryCompare(list, "currentIndex", 1);
        compare(sentNow(), "");
    }

    // A wheel that grows with its window takes its rows along: a tap meets the row that it shows.
    function test_the_selected_row_is_in_the_middle_at_any_size() {
        open(1280, 800);
        const picker = find("sourcePicker");
        const list = listOf("sourcePicker");
        const row = picker.rowHeight;
        const middleY = () => list.itemAtIndex(list.currentIndex).mapToItem(list, 0, row / 2).y;
        tryVerify(() => middleY() === list.height / 2);
        mouseClick(list, list.width / 2, list.height / 2 + 2 * row);
        compare(sentNow(), "[U1Z1I3]");
        tryVerify(() => middleY() === list.height / 2);
        for (const [width, height] of [[360, 640], [840, 480], [1280, 1000]]) {
            window.width = width;
            window.height = height;
            tryVerify(() => picker.resting && middleY() === list.height / 2, 5000, width + "x" + height);
        }
        mouseClick(list, list.width / 2, list.height / 2);
        compare(sentNow(), "[U1Z1I3]");
    }

    // The unit's first answer takes rows away, here under a wheel that stands at its end, or moves.
    function test_rows_that_go_leave_the_selected_one_in_the_middle_data() {
        return [{ tag: "phone", height: 640 }, { tag: "wall", height: 1000 }, { tag: "moving", height: 640, moving: true }];
    }
    function test_rows_that_go_leave_the_selected_one_in_the_middle(data) {
        open(data.height > 640 ? 1280 : 360, data.height);
        const picker = find("zonePicker");
        const list = listOf("zonePicker");
        picker.forceActiveFocus();
        keyClick(Qt.Key_End);
        tryCompare(picker, "resting", true);
        tryCompare(list, "currentIndex", 15);
        if (data.moving)
            fling(list);
        play("> U1O1Z2");
        play("> U1O2Z5");
        tryCompare(picker, "resting", true, 8000);
        const middleY = () => list.itemAtIndex(picker.picker.selected).mapToItem(list, 0, picker.rowHeight / 2).y;
        tryVerify(() => middleY() === list.height / 2);
    }

    function test_lone_row_can_be_picked() {
        open(360, 640);
        play("> U1Z2N\"Attic\"\n> U1O1Z2");
        const picker = find("zonePicker");
        tryCompare(picker.picker, "count", 1);
        play("> U1Z2V-12");
        compare(find("volumeText").text, "50%");
        wait(200);
        const list = listOf("zonePicker");
        mouseClick(list, list.width / 2, picker.rowHeight * 1.5);
        harness.pass(20);
        compare(find("volumeText").text, "85%");
    }

    function fling(list) {
        mousePress(list, 40, 100);
        for (let y = 100; y >= 30; y -= 14) {
            mouseMove(list, 40, y);
            wait(12);
        }
        mouseRelease(list, 40, 30);
    }
    function test_fling_picks_once_where_it_ends() {
        open();
        const list = listOf("sourcePicker");
        fling(list);
        tryCompare(list, "moving", false, 8000);
        verify(list.currentIndex > 0);
        compare(sentNow(), "[U1Z1I" + (list.currentIndex + 1) + "]");
        compare(list.currentIndex, find("sourcePicker").picker.selected);
    }
    function test_touch_stops_a_fling_without_a_pick() {
        open();
        const list = listOf("sourcePicker");
        fling(list);
        verify(list.flicking);
        wait(30);
        mousePress(list, 40, 70);
        verify(!list.flicking);
        mouseRelease(list, 40, 70);
        tryCompare(list, "moving", false, 8000);
        compare(sentNow(), "");
        // What it stopped at can then be picked with a tap.
        wait(100);
        mouseClick(list, 40, find("sourcePicker").rowHeight * 1.5);
        compare(sentNow(), "[U1Z1I" + (list.currentIndex + 1) + "]");
    }

    function test_picker_by_keys_picks_where_it_rests() {
        open();
        const picker = find("sourcePicker");
        picker.forceActiveFocus();
        keyClick(Qt.Key_Down);
        keyClick(Qt.Key_Down);
        mouseWheel(picker, 30, 60, 0, -120);
        compare(sentNow(), "", "nothing is picked on the way");
        tryCompare(picker, "resting", true);
        compare(sentNow(), "[U1Z1I4]");
        keyClick(Qt.Key_Return);
        compare(sentNow(), "[U1Z1I4]", "Return picks again at once");
    }

    function test_switches_follow_the_unit() {
        open();
        const mute = find("muteSwitch");
        mouseClick(mute);
        compare(sentNow(), "[U1Z1M1]");
        harness.pass(20);
        verify(mute.checked);
        play("> U1Z1M0");
        verify(!mute.checked, "a click must not cut the switch off from the unit");
        mute.forceActiveFocus();
        keyClick(Qt.Key_Space);
        compare(sentNow(), "[U1Z1M1]");
        play("> U1Z1M0");
        verify(!mute.checked);
    }

    function test_tabs_and_scenes() {
        open();
        mouseClick(find("tab-scene"));
        compare(harness.app.screen.name, "scene");
        tryVerify(() => findChild(window.contentItem, "loadSceneButton") !== null);
        harness.sent();
        waitForRendering(window.contentItem);
        mouseClick(find("loadSceneButton"));
        verify(sentNow() !== "");
        play("stored start_tab_preference 3");
        mouseClick(find("tab-override"));
        tryVerify(() => findChild(window.contentItem, "ovrSwitch10") !== null);
        compare(find("screenTitle").text, "Overrides");
    }

    function test_rail_from_840() {
        open(839, 640);
        verify(!window.rail);
        window.width = 840;
        tryCompare(window, "rail", true);
    }

    function test_reconnect_runs_the_connect_step_alone() {
        open(360, 640, "", true);
        verify(!find("reconnectButton").visible);
        play("error");
        compare(find("linkState").text, "not connected");
        const dismiss = findChild(window, "alertButton");
        verify(dismiss);
        const button = find("reconnectButton");
        verify(button.visible);
        mouseClick(button);
        play("link closed");
        verify(findChild(window, "alertButton"), "an alert lets nothing else be reached");
        mouseClick(dismiss);
        wait(0);
        tryVerify(() => !harness.app.alert.shown);
        mouseClick(button);
        harness.pass(20);
        play("link opening\nconnect\nsent [U1SERIAL0] [U1APPQ0]");
        compare(find("linkState").text, "connected");
        compare(harness.lifeEvents().length, 0);
    }

    function test_alert_by_keyboard() {
        open(360, 640, "", true);
        play("error");
        keyClick(Qt.Key_Return);
        verify(!harness.app.alert.shown);
    }

    function test_settings_are_leaving_and_returning() {
        open();
        mouseClick(find("settingsButton"));
        compare(harness.lifeEvents().join(), "resign active,enter background");
        harness.setWindowHidden(true);
        harness.setWindowHidden(false);
        compare(harness.lifeEvents().length, 0);
        tryVerify(() => findChild(window.contentItem, "addressField") !== null);
        const field = find("addressField");
        field.forceActiveFocus();
        field.selectAll();
        for (const letter of "10.0.0.999")
            keyClick(letter);
        verify(find("addressHint").visible, "a number above 255");
        keyClick(Qt.Key_Backspace);
        verify(!find("addressHint").visible);
        play("stored ip_address_preference 10.0.0.99");
        keyClick(Qt.Key_Escape);
        compare(harness.lifeEvents().join(), "enter foreground,become active");
        harness.pass(20);
        compare(harness.app.link.address, "10.0.0.99");
    }

    function test_handle_moves_both_sliders_of_its_band() {
        open(1280, 800, "set advanced_mode_preference true");
        compare(harness.app.screen.name, "output");
        const handle = find("handle2");
        verify(!handle.visible, "a bypassed band has none");
        play("> U1O1B2P0F1000");
        verify(handle.visible);
        const frequency = harness.app.screen.slider("filterFreq2");
        const gain = harness.app.screen.slider("filterGain2");
        const plot = find("plot");
        const computed = plot.computations;
        harness.sent();
        mousePress(handle, 24, 24);
        for (let step = 1; step <= 8; ++step)
            mouseMove(handle.parent, handle.parent.width * 0.566 + 6 * step, handle.parent.height / 2 - 4 * step);
        verify(frequency.value > 3000 && gain.value > 0, frequency.value + " " + gain.value);
        verify(frequency.held && gain.held);
        // The unit says something else; the handle stays under the finger.
        const at = frequency.value;
        play("> U1O1B2P0F100");
        compare(frequency.value, at);
        mouseRelease(handle.parent, handle.parent.width * 0.566 + 48, handle.parent.height / 2 - 32);
        verify(!frequency.held);
        compare(frequency.value, at);
        compare(harness.app.screen.slider("filterFreq1").value, 3000);
        verify(/^\[U1O1B2P.*\]$/.test(sentLater()));
        // A pass has no gain: its handle moves along the axis alone.
        play("> U1O1B2HPF500");
        const before = gain.value;
        handle.forceActiveFocus();
        keyClick(Qt.Key_Up);
        compare(gain.value, before);
        keyClick(Qt.Key_Right);
        verify(frequency.value > 2700);
    }

    // A finger is put down on the volume and drags it up a little.
    function hold(slider) {
        mousePress(slider, 20, slider.height / 2);
        for (let x = 20; x <= 50; x += 3)
            mouseMove(slider, x, slider.height / 2);
        verify(slider.slider.held && slider.value > -40);
        sentLater();
    }
    // What a finger goes on doing after the slider has come to stand for another item, or has gone out of sight.
    function test_hands_are_off_data() {
        return [
            { tag: "another item is picked", away: () => find("zonePicker").picker.pick(1, "Zone 2") },
            { tag: "the rows go", away: () => play("> U1O1Z2") },
            { tag: "another tab", away: () => harness.app.selectTab(1), back: () => harness.app.selectTab(0) },
            { tag: "an alert", away: () => play("error"), back: () => mouseClick(findChild(window, "alertButton")) },
            { tag: "the settings", away: () => harness.app.settings.open(), back: () => harness.app.settings.close() },
            { tag: "the window is hidden", away: () => window.visible = false, back: () => window.visible = true },
            { tag: "the window is turned", away: () => { window.width = 640; window.height = 360; } }
        ];
    }
    function test_hands_are_off(data) {
        open();
        play("> U1Z1V-40\n> U1Z2V-70");
        const slider = find("volumeSlider");
        hold(slider);
        data.away();
        harness.pass(20);
        wait(0);
        verify(!slider.slider.held);
        sentLater();
        const before = slider.value;
        mouseMove(slider, 60, slider.height / 2);
        mouseMove(slider, 90, slider.height / 2);
        mouseRelease(slider, 90, slider.height / 2);
        compare(slider.value, before);
        verify(!/V-?[0-9]/.test(sentLater()));
        if (data.back)
            data.back();
        wait(0);
        harness.pass(20);
        mouseMove(slider, 60, slider.height / 2);
        mouseMove(slider, 70, slider.height / 2);
        verify(!slider.slider.held && !/V-?[0-9]/.test(sentLater()));
    }
    function test_a_band_that_is_turned_away_is_let_go() {
        open(360, 640, "set advanced_mode_preference true");
        play("> U1O1B1P0F1000\n> U1O1B2P0F1000");
        const first = harness.app.screen.slider("filterFreq1");
        const line = findChild(find("band"), "frequency");
        const slider = findChild(line, "levelSlider");
        slider.forceActiveFocus();
        mousePress(slider, 60, 24);
        verify(first.held);
        find("handle2").forceActiveFocus();
        for (let x = 60; x <= 100; x += 5)
            mouseMove(slider, x, 24);
        mouseRelease(slider, 100, 24);
        compare(slider.slider, harness.app.screen.slider("filterFreq2"));
        verify(!first.held && !slider.slider.held);
        compare(sentLater(), "");
    }
    function test_the_nearest_handle_is_taken() {
        open(360, 640, "set advanced_mode_preference true");
        play("> U1O1B2P0F1000\n> U1O1B3P0F1500\n> U1O1B4P0F1000");
        for (const [edited, taken] of [[2, 2], [3, 3], [4, 4]]) {
            const handle = find("handle" + edited);
            handle.forceActiveFocus();
            mousePress(handle, 24, 24);
            for (let band = 2; band <= 4; ++band)
                compare(harness.app.screen.slider("filterFreq" + band).held, band === taken, "band " + band);
            mouseRelease(handle, 24, 24);
        }
    }
    // The page scrolls under a pointer that stays: what comes under it is not turned.
    function test_scrolling_turns_nothing() {
        open(800, 480, "set advanced_mode_preference true");
        const slider = find("volumeSlider");
        const page = find("bandChoice").parent.parent.parent.parent;
        verify(page.contentY !== undefined && page.contentHeight > page.height + 100);
        const place = slider.mapToItem(window.contentItem, slider.width / 2, slider.height / 2);
        page.contentY = 150;
        for (let notch = 0; notch < 12; ++notch) {
            mouseWheel(window.contentItem, place.x, place.y, 0, 120);
            wait(10);
        }
        compare(page.contentY, 0);
        compare(slider.value, -40);
        wait(450);
        mouseWheel(slider, 30, 30, 0, 120);
        compare(slider.value, -39, "at rest, the wheel turns what it is over");
    }

    function test_a_stopped_wheel_shows_again_what_is_selected() {
        open();
        mouseClick(find("tab-scene"));
        waitForRendering(window.contentItem);
        harness.sent();
        const picker = find("scenePicker");
        picker.patience = 50;
        const list = listOf("scenePicker");
        fling(list);
        wait(30);
        mousePress(list, 40, 70);
        mouseRelease(list, 40, 70);
        verify(!find("saveSceneButton").enabled, "it would store another scene than the wheel shows");
        tryCompare(picker, "loose", false);
        compare(list.currentIndex, 0);
        verify(find("saveSceneButton").enabled);
        // A turn by keys is meant, though it is not at rest.
        picker.forceActiveFocus();
        keyClick(Qt.Key_Down);
        mouseClick(find("saveSceneButton"));
        compare(sentNow(), "[U1SP2SAVE]");
    }
    function test_a_key_during_a_fling_is_one_pick() {
        open();
        const picker = find("sourcePicker");
        const list = listOf("sourcePicker");
        picker.forceActiveFocus();
        fling(list);
        verify(list.flicking);
        wait(30);
        keyClick(Qt.Key_Down);
        tryCompare(picker, "resting", true);
        compare(sentNow(), "[U1Z1I" + (list.currentIndex + 1) + "]");
    }
    function test_a_row_that_moved_under_the_finger_is_not_picked() {
        open();
        play("> U1O1Z2\n> U1O2Z4");
        const picker = find("zonePicker");
        tryVerify(() => picker.picker.count === 2 && picker.resting);
        wait(200);
        const list = listOf("zonePicker");
        mousePress(list, 40, list.height / 2 + picker.rowHeight);
        play("> U1O3Z3");
        mouseRelease(list, 40, list.height / 2 + picker.rowHeight);
        compare(picker.picker.selectedText, "Zone 2");
    }
    function test_reading_a_cut_caption_flips_nothing() {
        open();
        const mute = find("muteSwitch");
        const touch = touchEvent(window);
        const rest = () => {
            touch.press(1, mute, 20, 20).commit();
            wait(900);
            touch.release(1, mute, 20, 20).commit();
        };
        rest();
        compare(sentNow(), "[U1Z1M1]", "a slow finger is a finger");
        mute.parent = window.contentItem;
        mute.width = 110;
        tryVerify(() => mute.caption.truncated);
        rest();
        compare(sentNow(), "");
    }
    function test_the_keyboard_is_never_lost() {
        open(360, 640, "set advanced_mode_preference true");
        play("> U1O1B1P0F1000");
        const slider = findChild(findChild(find("band"), "gain"), "levelSlider");
        slider.forceActiveFocus();
        play("> U1O1B1BYPASS");
        verify(!slider.enabled);
        const inSight = () => {
            const item = window.activeFocusItem;
            return item && item.visible && item.enabled && (item.activeFocusOnTab || item.focusPolicy) ? item : null;
        };
        verify(inSight(), "a slider was disabled");
        const gear = find("settingsButton");
        gear.forceActiveFocus();
        keyClick(Qt.Key_Space);
        wait(0);
        keyClick(Qt.Key_Escape);
        wait(0);
        compare(window.activeFocusItem, gear);
    }
    function test_names_are_not_patterns() {
        open();
        play("> U1Z1N\"%1 %2\"\n> U1O1Z1");
        tryCompare(find("zonePicker").picker, "selectedText", "%1 %2");
        compare(find("volumeSlider").Accessible.name, "%1 %2 volume, 50 percent");
    }

    function test_focus_goes_round() {
        open();
        let seen = 0;
        const first = find("zonePicker");
        first.forceActiveFocus();
        for (let step = 0; step < 30; ++step) {
            keyClick(Qt.Key_Tab);
            ++seen;
            if (first.activeFocus)
                break;
        }
        verify(first.activeFocus, "Tab must come round");
        verify(seen >= 10, seen);
    }

    // What a screen reader is told: a role that fits, a name that says what and where, a value, a state.
    function test_what_assistive_technology_finds_data() {
        return [
            { screen: "zone", finds: ["Heading; Zones", "StaticText; Unit at 192.168.1.50, connected; read only", "Button; Settings",
                    "SpinBox; Zone, Kitchen; 1 of 1 to 1", "SpinBox; Kitchen input, Source 1; 1 of 1 to 20",
                    "Slider; Kitchen volume, 50 percent; -40 of -80 to 0", "Slider; Kitchen bass, 0 percent; 0 of -15 to 15",
                    "CheckBox; Kitchen mute, off; off", "PageTab; Zones; on", "PageTab; Scenes"] },
            { screen: "override", finds: ["CheckBox; Override 10, off; off", "PageTab; Overrides; on"] },
            { screen: "scene", finds: ["SpinBox; Scene, Scene 1; 1 of 1 to 10", "Button; Recall Scene 1", "Button; Store Scene 1"] },
            { screen: "settings", finds: ["Pane; Settings", "EditableText; IP address", "RadioButton; Unit number, 1; on",
                    "RadioButton; Unit number, 4; off", "CheckBox; State queries, on; on", "Button; Done"] },
            { screen: "output", finds: ["SpinBox; Output, Output 1; 1 of 1 to 16", "Slider; Output 1 volume, -40 decibels; -40 of -80 to 0",
                    "CheckBox; Output 1 power, on; on", "RadioButton; Output 1 type 7, Bypass; on",
                    "RadioButton; Output 1 type 1, Parametric; on", "Slider; Output 1 gain 1, 3 decibels; 3 of -15 to 15",
                    "Slider; Output 1 gain 7, 0 decibels; 0 of -15 to 15; read only",
                    "Slider; Output 1 band 1, 1 kilohertz, 3 decibels; 3 of -15 to 15"] }
        ].map(row => Object.assign(row, { tag: row.screen }));
    }
    function test_what_assistive_technology_finds(data) {
        open(1280, 900, data.screen === "output" ? "set advanced_mode_preference true" : "");
        play("> U1Z1N\"Kitchen\"\n> U1O1Z1\n> U1APPQ0");
        play("> U1O1B1P3F1000");
        show(data.screen);
        const found = harness.accessible(window);
        for (const line of data.finds)
            verify(found.includes(line), line + " in " + found.filter(other => other.startsWith(line.slice(0, 18))).join("\n"));
        for (const line of found)
            verify(!/^[^;]*; *(;|$)/.test(line), "without a name: " + line);
    }
    function test_assistive_technology_acts() {
        open(1280, 900);
        play("> U1Z1N\"Kitchen\"\n> U1O1Z1");
        const rows = [["Kitchen mute, off", "Toggle", "[U1Z1M1]"], ["Kitchen loudness, off", "Press", "[U1Z1LD1]"],
            ["Kitchen volume, 50 percent", "Increase", "[U1Z1V-39]"], ["Kitchen bass, 0 percent", "Decrease", "[U1Z1BASS-1]"]];
        for (const [name, action, command] of rows) {
            verify(harness.actOn(window, name, action), name);
            compare(sentLater(), command);
        }
        verify(harness.actOn(window, "Kitchen input, Source 1", "Increase"));
        tryVerify(() => find("sourcePicker").resting);
        compare(sentNow(), "[U1Z1I2]");
        verify(harness.actOn(window, "Scenes", "Press"));
        compare(harness.app.screen.name, "scene");
    }

    function test_nothing_turns_while_idle() {
        open();
        const busy = find("busy");
        verify(busy.item, "the query is out");
        play("> U1APPQ0");
        compare(busy.item, null);
    }

    // As the Web Content Accessibility Guidelines 2.1 define relative luminance and contrast.
    function luminance(colour) {
        const linear = part => part <= 0.03928 ? part / 12.92 : Math.pow((part + 0.055) / 1.055, 2.4);
        return 0.2126 * linear(colour.r) + 0.7152 * linear(colour.g) + 0.0722 * linear(colour.b);
    }
    function contrast(one, other) {
        const [dark, light] = [luminance(one), luminance(other)].sort((a, b) => a - b);
        return (light + 0.05) / (dark + 0.05);
    }
    function test_texts_can_be_read() {
        compare(contrast(Qt.rgba(0, 0, 0, 1), Qt.rgba(1, 1, 1, 1)), 21);
        verify(contrast(Theme.accentText, Theme.accent) >= 4.5, "on the accent");
        for (const text of ["text", "dimText", "pickerText", "accent", "good", "waiting", "bad"])
            for (const surface of ["background", "surface", "raised"])
                verify(contrast(Theme[text], Theme[surface]) >= 4.5, text + " on " + surface);
        // A wheel's rows beside the middle are drawn at three quarters.
        const faint = Qt.tint(Theme.surface, Qt.rgba(Theme.text.r, Theme.text.g, Theme.text.b, 0.75));
        verify(contrast(faint, Theme.surface) >= 4.5, "rows of a wheel");
    }

    function items(item, isWanted, found) {
        for (let at = 0; at < item.children.length; ++at) {
            const child = item.children[at];
            if (!child.visible)
                continue;
            if (isWanted(child))
                found.push(child);
            items(child, isWanted, found);
        }
        return found;
    }
    function show(screen) {
        if (screen === "settings")
            mouseClick(find("settingsButton"));
        else if (screen !== "output")
            mouseClick(find("tab-" + screen));
        waitForRendering(window.contentItem);
        harness.pass(20);
    }
    function test_large_texts_and_wide_names_data() {
        const rows = [];
        for (const [width, height] of [[360, 640], [800, 480], [1280, 800]])
            for (const screen of ["zone", "group", "override", "scene", "output", "settings"])
                rows.push({ tag: screen + " " + width + "x" + height, screen: screen, width: width, height: height });
        return rows;
    }
    function test_large_texts_and_wide_names(data) {
        Theme.textScale = 2;
        open(data.width, data.height, data.screen === "output" ? "set advanced_mode_preference true" : "");
        const wide = "WWWWWWWWWWWWWWWW";
        for (const kind of ["Z", "O", "G", "I", "S"])
            for (let number = 1; number <= 2; ++number)
                play("> U1" + kind + number + "N\"" + wide + "\"");
        play("> U1O1Z1\n> U1O2Z2\n> U1Z1V-79\n> U1O1B1P-14F19999");
        show(data.screen);
        const all = items(window.contentItem, item => item.truncated !== undefined && item.text !== "", []);
        verify(all.length >= 10, all.length);
        for (const text of all) {
            const what = text.text + " " + Math.round(text.contentWidth) + " in " + Math.round(text.width);
            if (!text.truncated)
                verify(text.contentWidth <= text.width + 1, "cut without an ellipsis: " + what);
            verify(text.contentHeight <= text.height + 1, "cut in its height: " + what);
            const left = text.mapToItem(window.contentItem, 0, 0).x;
            verify(left >= 0 && left + text.width <= window.width + 1, "out of the window: " + what);
        }
        if (data.tag === "zone 360x640") {
            const cut = listOf("zonePicker").itemAtIndex(0);
            verify(cut.truncated);
            const tip = find("tip");
            mouseMove(cut, cut.width / 2, cut.height / 2);
            tryVerify(() => tip.item && tip.item.whole.visible);
            compare(tip.item.whole.text, cut.text);
            verify(tip.item.whole.contentWidth > cut.width, "the tip is as narrow as what it should show whole");
            mouseMove(find("volumeSlider"));
            tryCompare(tip, "item", null);
            // A finger that stays shows it too, and picks nothing.
            harness.sent();
            const touch = touchEvent(window);
            touch.press(1, cut, cut.width / 2, cut.height / 2).commit();
            tryVerify(() => tip.item && tip.item.whole.visible);
            touch.release(1, cut, cut.width / 2, cut.height / 2).commit();
            tryCompare(tip, "item", null);
            compare(sentNow(), "");
        }
    }

    function test_a_finger_needs_48_pixels_data() {
        return test_large_texts_and_wide_names_data();
    }
    function test_a_finger_needs_48_pixels(data) {
        open(data.width, data.height, data.screen === "output" ? "set advanced_mode_preference true" : "");
        play("> U1O1B1P3F1000\n> U1O1B4P3F5000");
        show(data.screen);
        const all = items(window.contentItem, item => item.activeFocusOnTab || item.focusPolicy, []);
        verify(all.length >= 6, all.length);
        for (const item of all)
            verify(item.width >= 48 && item.height >= 48, [item, item.objectName, item.width, item.height].join(" "));
    }
}

import QtQuick
import QtTest
import Lumbra.Touch

// The window over the real application: presses, drags, wheel turns and keys, and what they send.
TestCase {
    id: test

    property Main window: null
    readonly property string advanced: "set advanced_mode_preference true"

    name: "Touch"
    when: windowShown

    Component {
        id: mainWindow

        Main {
            visible: true
        }
    }

    function open(width, height, settings) {
        cleanup();
        harness.start(settings || "");
        window = createTemporaryObject(mainWindow, test, { app: harness.app, width: width || 360, height: height || 640 });
        verify(window);
        waitForRendering(window.contentItem);
        harness.sent();
    }
    function openEqualiser(width, height) {
        open(width, height, advanced);
        show("equaliser");
    }
    function cleanup() {
        window?.destroy();
        window = null;
        wait(0);
        harness.stop();
    }
    function init() {
        Theme.textScale = 1;
        harness.speak("en");
    }
    function play(script) {
        compare(harness.play(script), "");
    }
    // With everything that sliders have put off.
    function sentLater() {
        harness.pass(800);
        return harness.sent();
    }

    // Everything in sight that is wanted, depth first. Screens that were on show stay, hidden.
    function items(item, isWanted) {
        const found = [];
        for (let at = 0; at < item.children.length; ++at)
            if (item.children[at].visible)
                found.push(...[item.children[at]].filter(isWanted), ...items(item.children[at], isWanted));
        return found;
    }
    // What is in sight under these names, each within the one before.
    function seen(...names) {
        return names.reduce((item, name) => item && items(item, child => child.objectName === name)[0],
            window.contentItem.parent) || null;
    }
    function find(...names) {
        tryVerify(() => seen(...names), 5000, names.join());
        return seen(...names);
    }

    function drag(item, x, y, right, down) {
        mousePress(item, x, y);
        for (let step = 1; step <= 10; ++step)
            mouseMove(item, x + right * step / 10, y + down * step / 10);
    }
    function holdFinger(item, x, y, during) {
        const touch = touchEvent(window);
        touch.press(1, item, x, y).commit();
        during();
        touch.release(1, item, x, y).commit();
    }
    function tapRow(picker, rowsBelow) {
        const list = find(picker, "list");
        mouseClick(list, list.width / 2, list.height / 2 + rowsBelow * find(picker).rowHeight);
    }
    function isInMiddle(picker) {
        const wheel = find(picker);
        const list = find(picker, "list");
        const row = list.itemAtIndex(wheel.picker.selected);
        return wheel.resting && row && row.mapToItem(list, 0, row.height / 2).y === list.height / 2;
    }
    function fling(picker) {
        const list = find(picker, "list");
        mousePress(list, 40, 100);
        for (let y = 100; y >= 30; y -= 14) {
            mouseMove(list, 40, y);
            wait(12);
        }
        mouseRelease(list, 40, 30);
        verify(list.flicking);
    }
    function stopFling(picker) {
        const list = find(picker, "list");
        fling(picker);
        wait(30);
        mousePress(list, 40, 70);
        verify(!list.flicking);
        mouseRelease(list, 40, 70);
        tryCompare(list, "moving", false, 8000);
        compare(harness.sent(), "");
    }

    // A press far from the thumb moves nothing: a jump here would be a blast.
    function test_a_drag_is_relative_and_keys_step() {
        open();
        const slider = find("volumeSlider");
        const y = slider.height / 2;
        for (const x of [slider.width - 4, 4])
            mouseClick(slider, x, y);
        compare(sentLater(), "");
        compare(slider.value, -40);
        drag(slider, 20, y, 40, 0);
        const value = slider.value;
        verify(value > -40 && value < -20, value);
        // The finger stays; the unit speaks.
        play("> U1Z1V-39");
        harness.sent();
        mouseRelease(slider, 60, y);
        compare(slider.value, value);
        compare(find("bubble").text, Math.trunc((Math.trunc(value) + 80) * 1.25) + "%", "what the finger asks for");
        harness.pass(800);
        compare(sentLater(), "[U1Z1V" + Math.trunc(value) + "]");
        verify(!seen("bubble"));

        // Keys and a mouse's wheel step.
        slider.forceActiveFocus();
        const turn = angle => mouseWheel(slider, 30, 30, 0, angle);
        for (const [act, what, value] of [[keyClick, Qt.Key_Right, -39], [keyClick, Qt.Key_Up, -39],
            [keyClick, Qt.Key_Left, -41], [keyClick, Qt.Key_Down, -41], [keyClick, Qt.Key_PageUp, -35],
            [keyClick, Qt.Key_PageDown, -45], [keyClick, Qt.Key_Home, -40], [keyClick, Qt.Key_End, -40],
            [turn, 120, -39], [turn, -240, -42], [turn, 60, -40], [turn, 60, -39]]) {
            play("> U1Z1V-40");
            act(what);
            compare(slider.value, value);
            compare(sentLater(), value === -40 ? "" : "[U1Z1V" + value + "]");
        }
    }

    // A wheel that grows with its window takes its rows along: a tap meets the row that it shows.
    function test_a_tap_picks_the_row_under_it() {
        open(800, 470);
        tapRow("sourcePicker", 0);
        compare(harness.sent(), "[U1Z1I1]", "the middle row is picked again");
        tapRow("sourcePicker", 2);
        compare(harness.sent(), "[U1Z1I3]");
        for (const [width, height] of [[360, 470], [839, 400], [830, 479]])
            [window.width, window.height] = [width, height];
        tryVerify(() => window.width === 830 && isInMiddle("sourcePicker"));
        compare(find("sourcePicker", "list").currentIndex, 2, "the sizes in between moved the wheel");
        compare(harness.sent(), "");
        tapRow("sourcePicker", 0);
        compare(harness.sent(), "[U1Z1I3]");
        play("> U1Z2N\"Attic\"\n> U1O1Z2\n> U1Z2V-12");
        tryVerify(() => find("zonePicker").picker.count === 1 && isInMiddle("zonePicker"));
        compare(find("volumeSlider").value, -40);
        tapRow("zonePicker", 0);
        harness.pass(20);
        compare([find("volumeSlider").value, find("volumeText").text], [-12, "85%"], "a lone row can be picked");
    }
    // The unit's first answer takes rows away, here under a wheel that stands at its end, or moves.
    function test_rows_that_go_leave_the_selected_one_in_the_middle() {
        for (const [width, height, moves] of [[360, 640, false], [800, 1000, false], [360, 640, true]]) {
            open(width, height);
            find("zonePicker").forceActiveFocus();
            keyClick(Qt.Key_End);
            tryVerify(() => isInMiddle("zonePicker"));
            compare(find("zonePicker", "list").currentIndex, 15);
            if (moves)
                fling("zonePicker");
            play("> U1O1Z2");
            play("> U1O2Z5");
            tryVerify(() => isInMiddle("zonePicker"), 8000, "height " + height);
        }
        // A row that moved under the finger is not picked.
        play("pick zonePicker 0");
        tryVerify(() => isInMiddle("zonePicker"));
        const list = find("zonePicker", "list");
        const below = list.height / 2 + find("zonePicker").rowHeight;
        mousePress(list, 40, below);
        play("> U1O3Z3");
        mouseRelease(list, 40, below);
        compare(find("zonePicker").picker.selectedText, "Zone 2");
    }
    function test_a_wheel_picks_once_where_it_ends() {
        open(360, 470);
        const picker = find("sourcePicker");
        const list = find("sourcePicker", "list");
        picker.forceActiveFocus();
        keyClick(Qt.Key_Down);
        keyClick(Qt.Key_Down);
        mouseWheel(picker, 30, 60, 0, -120);
        compare(harness.sent(), "", "nothing is picked on the way");
        tryCompare(picker, "resting", true);
        keyClick(Qt.Key_Return);
        compare(harness.sent(), "[U1Z1I4] [U1Z1I4]", "Return picks again at once");
        const isPickedOnce = () => {
            tryVerify(() => isInMiddle("sourcePicker"), 8000);
            compare(harness.sent(), "[U1Z1I" + (list.currentIndex + 1) + "]");
        };
        fling("sourcePicker");
        isPickedOnce();
        verify(list.currentIndex > 3);
        // A key in mid-fling; and a tap on what a touch stopped at.
        for (const [stop, pick] of [[fling, () => wait(30) || keyClick(Qt.Key_Down)],
            [stopFling, () => tapRow("sourcePicker", 0)]]) {
            play("pick sourcePicker 0");
            tryVerify(() => isInMiddle("sourcePicker"));
            harness.sent();
            stop("sourcePicker");
            pick();
            isPickedOnce();
        }
    }
    function test_a_stopped_wheel_shows_again_what_is_selected() {
        open();
        mouseClick(find("tab-scene"));
        const picker = find("scenePicker");
        waitForRendering(window.contentItem);
        harness.sent();
        picker.patience = 50;
        stopFling("scenePicker");
        verify(!find("saveSceneButton").enabled, "it would store another scene than the wheel shows");
        tryVerify(() => isInMiddle("scenePicker"));
        compare(picker.picker.selected, 0);
        verify(find("saveSceneButton").enabled);
        // A turn by keys is meant, though it is not at rest.
        picker.forceActiveFocus();
        keyClick(Qt.Key_Down);
        mouseClick(find("saveSceneButton"));
        mouseClick(find("replaceButton"));
        compare(harness.sent(), "[U1SP2SAVE]");
    }
    function test_storing_asks_and_names_the_scene() {
        for (const width of [360, 800]) {
            open(width, 480);
            show("scene");
            harness.sent();
            const store = find("saveSceneButton");
            const ask = () => {
                mouseClick(store);
                const scene = harness.app.screen.picker("scenePicker").selectedText;
                verify(find("storeQuestion").text.startsWith("Replace what is stored as \"" + scene + "\"? "));
                tryVerify(() => find("cancelButton").x < find("replaceButton").x);
                verify(find("cancelButton").activeFocus);
            };
            for (const leave of [() => keyClick(Qt.Key_Escape), () => keyClick(Qt.Key_Return),
                () => mouseClick(find("cancelButton")), () => play("> U1SP1N\"Movie Night\""),
                () => play("pick scenePicker 3"), () => harness.app.selectTab(1), () => play("error"), () => play("end")]) {
                ask();
                leave();
                tryVerify(() => !seen("storeQuestion"));
                compare(harness.sent().replace(/\[U1(APPQ|SERIAL).\] ?/g, ""), "");
                harness.app.alert.dismiss();
                tryVerify(() => !seen("alertButton"));
                play("tab group" + (store.enabled ? "" : "\nconnect"));
                show("scene");
                harness.sent();
            }
            store.forceActiveFocus(Qt.TabFocusReason);
            for (const focused of ["cancelButton", "saveSceneButton"]) {
                keyClick(Qt.Key_Return);
                tryVerify(() => find(focused).visualFocus);
            }
            ask();
            mouseClick(find("replaceButton"));
            compare(harness.sent(), "[U1SP4SAVE]");
            compare([find("loadSceneButton").text, store.text].join(), "Recall Scene 4,Sent");
            verify(harness.accessible(window).includes("Button; Store Scene 4, sent"));
            play("pick scenePicker 1");
            compare(store.text, "Store", "nothing was sent for this one");
        }
    }
    function test_a_hand_stops_at_the_limit() {
        open();
        play("> U1Z1V-30\n> U1Z1MV-25");
        const slider = find("volumeSlider");
        mousePress(find("more"));
        for (const [value, says] of [[-30, "62%"], [-10, "Maximum 68%"], [-27, "66%"], [0, "Maximum 68%"]]) {
            slider.slider.moveToValue(value);
            compare([slider.value, find("bubble").text], [Math.min(value, -25), says]);
        }
        mouseRelease(find("more"));
        const end = items(slider, item => item.objectName === "thumb" || item.objectName === "limit").map(item => item.x + item.width / 2);
        compare(end[0], end[1], "the mark is where the thumb stops");
        compare(sentLater(), "[U1Z1V-25]");
        // A limit that has come down below what plays: nothing jumps.
        play("wait 2\n> U1Z1V-25\n> U1Z1MV-40");
        mouseClick(find("more"));
        compare([slider.value, sentLater()], [-25, ""]);
        mouseClick(find("less"));
        compare(sentLater(), "[U1Z1V-26]");
    }
    function test_two_buttons_move_the_volume() {
        open();
        const slider = find("volumeSlider");
        for (let press = 0; press < 3; ++press)
            mouseClick(find("more"));
        compare(slider.value, -37);
        play("wait 0.76\nsent [U1Z1V-37]\n> U1Z1V-37\nwait 1\n> U1Z2V-20");
        mousePress(find("less"));
        compare(slider.value, -37, "not before it is a tap or a hold");
        tryCompare(slider, "value", -38);
        // It must not go on with another zone.
        play("pick zonePicker 1");
        mouseRelease(find("less"));
        compare(slider.value, -20);
        compare(sentLater(), "");
    }

    function test_the_alert_the_link_and_a_switch() {
        open();
        play("> U1APPQ0");
        compare(find("busy").item, null, "nothing turns while idle");
        verify(!seen("reconnectButton"));
        for (const dismiss of [() => mouseClick(find("alertButton")), () => keyClick(Qt.Key_Escape)]) {
            play("error");
            compare(find("linkState").text, "Not connected");
            const message = find("alertMessage").text;
            compare([message, find("alertButton").text].join(), "Failed to connect to IP address 192.168.1.50.,OK");
            verify(harness.accessible(window).includes("AlertMessage; Error, " + message));
            const press = (name, then) => {
                mouseClick(find(name));
                harness.pass(20);
                play(then);
            };
            press("tab-group", "error");
            press("tab-zone", "error");
            verify(seen("alertButton"), "an alert holds nothing back");
            dismiss();
            for (const tab of ["tab-group", "tab-zone"])
                press(tab, "error");
            tryVerify(() => !seen("alertButton"), 5000, "each screen that appears fails again: that is one failure");
            press("reconnectButton", "link opening\nerror");
            press("retryButton", "link opening\nerror");
            verify(seen("alertButton"), "the user has tried again");
            harness.sent();
            press("reconnectButton", "link opening\nconnect\nsent [U1SERIAL0] [U1APPQ0]");
            tryVerify(() => !seen("alertButton"), 5000, "it is over");
            compare(find("linkState").text, "Waiting for the unit");
            verify(find("busy").item);
        }
        const mute = find("muteSwitch");
        play("> U1Z1M0");
        mute.forceActiveFocus();
        for (const flip of [() => mouseClick(mute), () => keyClick(Qt.Key_Space), () => keyClick(Qt.Key_Return)]) {
            flip();
            compare(harness.sent(), "[U1Z1M1]");
            harness.pass(20);
            verify(mute.checked);
            play("> U1Z1M0");
            verify(!mute.checked, "a click must not cut the switch off from the unit");
        }
        // A finger that stays to read a cut caption flips nothing; a slow finger is a finger.
        for (const cut of [false, true]) {
            mute.parent = window.contentItem;
            mute.width = cut ? 110 : 300;
            tryCompare(mute.caption, "truncated", cut);
            holdFinger(mute, 20, 20, () => wait(250));
            compare(harness.sent(), cut ? "" : "[U1Z1M1]");
        }
    }
    // What the header says, whether the values look certain, and whether a hand moves what would be lost.
    function test_what_is_shown_is_true() {
        for (const [width, height] of [[360, 640], [1280, 800]]) {
            open(width, height);
            const slider = find("volumeSlider");
            const place = slider.mapToItem(window.contentItem, 0, 0).y;
            for (const [script, says, certain, moves] of [
                ["link open", "Waiting for the unit", false, true], ["> U1APPQ0", "Connected", true, true],
                ["tab group ; wait 5 ; tab zone ; wait 5", "Unit 1 does not answer", false, true],
                ["> U1APPQ0", "Connected", true, true], ["end", "Not connected", false, false],
                ["away ; back", "Connecting", false, false]]) {
                play(script);
                harness.pass(20);
                compare(find("linkState").text, says);
                compare(Qt.colorEqual(find("volumeText").color, Theme.text), certain, says);
                compare(slider.mapToItem(window.contentItem, 0, 0).y, place, says + ": nothing moves under a finger");
                const before = harness.leftBehind();
                if (says !== "Connecting" && says !== "Not connected" && !certain)
                    continue;
                mouseClick(find("muteSwitch"));
                slider.forceActiveFocus();
                keyClick(Qt.Key_Up);
                verify(harness.actOn(window, "Zone 1 mute, unknown", "Toggle"));
                compare(harness.leftBehind() !== before, moves, says);
            }
            const zones = harness.app.screen.picker("zonePicker");
            verify(zones.pick(4, "Zone 5") && zones.selected === 4, "browsing sends nothing");
        }
    }
    function test_the_header_is_never_cut() {
        for (const language of ["en", "de", "fr", "es"])
            for (const scale of [1, 1.5]) {
                Theme.textScale = scale;
                harness.speak(language);
                open(360, 640);
                for (const [script, button] of [["wait 0.1", ""], ["wait 6", "checkUnitButton"], ["end", "reconnectButton"], ["away ; back", ""]]) {
                    play(script);
                    const header = [find("linkState"), find("screenTitle")];
                    waitForRendering(header[0], 50);
                    verify(header.every(text => !text.truncated && text.contentWidth <= text.width), [language, scale, header[0].text].join(" "));
                    verify(!button || seen(button));
                    verify(button !== "checkUnitButton" || seen(button).text === "", "an icon");
                }
            }
        init();
        open(800, 480);
        play("wait 6");
        compare([find("checkUnitButton").text, seen("busy")].join(), "Unit and address,");
        mouseClick(find("checkUnitButton"));
        verify(find("unitChoice"));
    }
    // What is reported, what was asked for, and what nobody has said.
    function test_all_items_are_seen_at_once() {
        harness.speak("de");
        open(1280, 800);
        play("> U1O1Z1\n> U1O2Z3\n> U1Z3N\"Attic\"\n> U1Z3V-20\n> U1Z3M1\n> U1Z3I2\n> U1I2N\"Tuner\"");
        const row = find("zonePicker", "list").itemAtIndex(1);
        const shows = text => compare([row.name, row.input, row.level, row.condition, row.selected].join(), text);
        shows("Attic,Tuner,75\u202f%,Stumm,false");
        verify(!seen("thumb") && find("volumeText").text === "–" && harness.accessible(window).includes("ListItem; Zone 1, unbekannt, unbekannt; on"));
        mouseClick(row);
        harness.pass(20);
        compare([find("condition").text, Qt.colorEqual(find("volumeSlider").color, Theme.stale)].join(), "Stumm,true");
        play("> U1Z3V-40");
        shows("Attic,Tuner,50\u202f%,,true");
        compare(find("itemName").text, "Attic");
        verify(seen("thumb"));
        mouseClick(find("more"));
        mouseClick(find("sourcePicker", "list").itemAtIndex(2));
        play("wait 0.8\npick zonePicker 0\npick zonePicker 1");
        shows("Attic,Tuner,50\u202f%,,true");
        compare([row.askedInput, row.askedLevel, find("volumeText").text].join(), "Quelle 3,51\u202f%,50\u202f%");
        play("> U1Z3V-39\n> U1Z3I3");
        shows("Attic,Quelle 3,51\u202f%,,true");
        compare(row.askedInput + row.askedLevel, "");
    }
    function test_settings_are_leaving_and_returning() {
        open(800, 1000);
        mouseClick(find("settingsButton"));
        play("link closed");
        find("addressField").forceActiveFocus();
        find("addressField").selectAll();
        for (const letter of "10.0.0.999")
            keyClick(letter);
        const change = () => [["serialSwitch"], ["advancedSwitch"], ["unitChoice", "segment2"]].forEach(names => mouseClick(find(...names)));
        const below = find("unitChoice").y;
        change();
        verify(!seen("addressHint"), "who types is not done");
        mouseClick(find("doneButton"));
        verify(seen("addressHint") && find("unitChoice").y === below, "a number above 255");
        find("addressField").forceActiveFocus();
        keyClick(Qt.Key_Backspace);
        verify(!seen("addressHint"));
        compare(find("startTabChoice", "segment0").text, "Outputs");
        mouseClick(find("licenceButton"));
        verify(find("licence").text.startsWith("MIT License"));
        const stored = (address, unit) => play("stored ip_address_preference " + address + "\nstored unit_number_preference " + unit + "\nstored serial_port_preference false");
        for (const leave of [() => keyClick(Qt.Key_Escape), () => mouseClick(find("cancelSettingsButton"))]) {
            stored("192.168.1.50", 1);
            leave();
            stored("192.168.1.50", 1);
            play("link opening\nconnect\nscreen zone\nsent [U1SERIAL0] [U1APPQ0]");
            mouseClick(find("settingsButton"));
        }
        find("addressField").text = "10.0.0.99";
        find("addressField").textEdited();
        change();
        play("link closed\nscreen zone");
        mouseClick(find("doneButton"));
        harness.pass(20);
        play("link opening\nconnect\nscreen output\nsent [U3SERIAL1] [U3APPQ1]");
        compare(harness.app.link.address, "10.0.0.99");
    }

    function test_a_handle_moves_both_sliders_of_its_own_band() {
        open(1280, 800, advanced);
        play("> U1O1B2P0F1000");
        const handle = find("handle2");
        const frequency = harness.app.screen.slider("filterFreq2");
        const gain = harness.app.screen.slider("filterGain2");
        const place = handle.mapToItem(window.contentItem, 24, 24);
        harness.sent();
        drag(window.contentItem, place.x, place.y, 48, -32);
        verify(frequency.value > 3000 && gain.value > 0, frequency.value + " " + gain.value);
        verify(frequency.held && gain.held);
        // The echo of an earlier step; the handle stays under the finger.
        const at = frequency.value;
        play("> U1O1B2P0F1000");
        mouseRelease(window.contentItem, place.x + 48, place.y - 32);
        compare(frequency.value, at);
        compare(harness.app.screen.slider("filterFreq1").value, 3000);
        harness.pass(2000);
        verify(/^\[U1O1B2P.*\]$/.test(harness.sent()));
        // The echo of the one key undoes nothing of the other.
        play("> U1O1B2P0F1000\nwait 2");
        handle.forceActiveFocus();
        keyClick(Qt.Key_Left);
        harness.pass(200);
        keyClick(Qt.Key_Up);
        play("wait 0.56\nsent [U1O1B2P0F944]\n> U1O1B2P0F944\nwait 3\nsent [U1O1B2P1F944]");
        // Of handles that lie over one another, the nearest is taken, and one that can be moved.
        openEqualiser(360, 640);
        play("> U1O1B2P0F1000\n> U1O1B3P0F1500\n> U1O1B4P0F1000\n> U1O1B1P0F1000\n> U1O1B1BYPASS");
        for (const band of [2, 3, 4]) {
            const handle = find("handle" + band);
            handle.forceActiveFocus();
            mousePress(handle, 24, 24);
            compare([2, 3, 4].filter(other => harness.app.screen.slider("filterFreq" + other).held), [band]);
            mouseRelease(handle, 24, 24);
        }
    }
    // Whether a picture has a colour at a place in an item, or a few pixels above or below.
    function isDrawn(image, item, x, y, color, near = 0.4) {
        return [-2, -1, 0, 1, 2].some(off => {
            const place = item.mapToItem(window.contentItem, x, y + off);
            const pixel = image.pixel(Math.round(place.x), Math.round(place.y));
            return Math.hypot(pixel.r - color.r, pixel.g - color.g, pixel.b - color.b) < near;
        });
    }
    function test_the_plot_shows_the_sum_and_the_edited_band() {
        open(1280, 1000, advanced);
        play("> U1O1B1P12F1000\n> U1O1B2LS-9F100\n> U1O1B7P0F300\n> U1O1B7BYPASS\n> U1APPQ1");
        const plot = find("plot");
        const grid = plot.grid;
        find("handle2").forceActiveFocus();
        const discs = [1, 2, 7].map(band => find("handle" + band, "disc"));
        const picture = (item = plot) => {
            waitForRendering(item);
            return grabImage(window.contentItem);
        };
        let image = picture();
        const isDisc = (disc, ring, inside) => isDrawn(image, disc, 1, 14, ring) && isDrawn(image, disc, 5, 14, inside, 0.03);
        verify(isDisc(discs[0], Theme.accent, Theme.raised), "a handle");
        verify(isDisc(discs[2], Theme.outline, Theme.surface), "a hollow handle");
        compare(discs[2].mapToItem(plot, 14, 14).y, grid.y + grid.height / 2);
        discs.forEach(disc => disc.opacity = 0);
        image = picture();
        const isAt = (color, share, decibels) => isDrawn(image, plot, grid.x + share * grid.width, grid.y + plot.yOf(decibels, grid.height), color);
        // 20 Hz, 1 kHz and 20 kHz: where the sum goes, then the low shelf alone; nothing else.
        for (const [share, sum, shelf] of [[0.04, -9, -9], [0.5663, 12, 0], [0.98, 0, 0]])
            compare([isAt(Theme.text, share, sum), isAt(Theme.accent, share, shelf), isAt(Theme.text, share, sum - 6)],
                [true, sum !== shelf, false], share);
        // The arrows where the sum leaves the grid; beside each, its value.
        const arrow = (share, decibels) => isAt(Theme.text, share - 0.006, decibels) && isAt(Theme.text, share + 0.006, decibels);
        verify(!arrow(0.5663, 17.4) && !arrow(0.5663, -17.4));
        for (const [gain, decibels] of [[12, 17.4], [-12, -17.4]]) {
            play("> U1O1B1P" + gain + "F1000\n> U1O1B3P" + gain + "F1000\n> U1O1B2BYPASS");
            image = picture();
            verify(arrow(0.5663, decibels), gain);
            const written = [...Array(54).keys()].filter(x => isAt(Theme.text, 0.5663 + (16 + x) / grid.width, decibels));
            verify(written.length > 10, "the value beside the arrow");
        }
        // At the ends of both axes, the whole handle is in the plot and on no label, and the bubble is beside it.
        open(360, 600, advanced);
        play("> U1O1B1LS-9F1000\n> U1APPQ1");
        show("equaliser");
        const small = find("plot");
        image = picture(small);
        verify(isDrawn(image, small, small.grid.x + 0.04 * small.grid.width, small.grid.y + small.yOf(-9, small.grid.height), Theme.text));
        verify([...Array(60).keys()].some(x => isDrawn(image, small, x, small.height - 6, small.textColor, 0.1)), "labels");
        const within = (item, other) => Qt.rect(...Object.values(item.mapToItem(other, 0, 0)).slice(0, 2), item.width, item.height);
        for (const setting of ["P15F20", "P-15F20", "P15F20000", "P-15F20000"]) {
            play("> U1O1B1" + setting);
            const disc = within(find("handle1", "disc"), small);
            verify(disc.left >= 20 && disc.top >= 0 && disc.right <= small.width && disc.bottom <= small.height - 12, setting);
            find("handle1").forceActiveFocus();
            keyClick(setting.includes("-") ? Qt.Key_Down : Qt.Key_Up);
            const bubble = within(find("bubble"), small.parent);
            verify(bubble.left >= 0 && bubble.top >= 0 && bubble.right <= small.parent.width, setting + ": " + bubble);
            const beside = within(find("bubble"), find("handle1", "disc"));
            verify(beside.right < 0 || beside.left > 28 || beside.bottom < 0, setting + ": " + beside);
        }
    }
    function test_a_handle_tells_what_it_sets() {
        openEqualiser(360, 640);
        play("> U1O1B2P0F1000\n> U1O1B3HPF500");
        const bubble = () => seen("bubble") ? seen("bubble", "bubbleText").text : "";
        const handle = find("handle2");
        const [gain, frequency] = [handle.gain, handle.frequency];
        // A pass has no gain.
        for (const [band, key, says] of [[2, Qt.Key_Up, "1 kHz, +1 dB"], [3, Qt.Key_Up, ""], [3, Qt.Key_Left, "472 Hz"]]) {
            find("handle" + band).forceActiveFocus();
            harness.pass(1000);
            compare(bubble(), "");
            keyClick(key);
            compare(bubble(), says);
        }
        // Then with Shift, by a tenth.
        const center = handle.mapToItem(window.contentItem, 24, 24);
        mousePress(window.contentItem, center.x, center.y);
        const moves = shift => {
            const before = [gain.value, frequency.value];
            for (let step = 0; step < 10; ++step)
                harness.moveMouse(window, center.x += 4, center.y -= 2, shift);
            return [gain.value - before[0], frequency.value - before[1]];
        };
        moves(Qt.NoModifier);
        const [whole, fine] = [moves(Qt.NoModifier), moves(Qt.ShiftModifier)];
        for (const part of [0, 1])
            fuzzyCompare(fine[part], whole[part] / 10, Math.abs(whole[part]) / 100);
        verify(/^[0-9.]+ kHz, \+[0-9]+ dB$/.test(bubble()), bubble());
        mouseRelease(window.contentItem, center.x, center.y);
        verify(sentLater().includes("O1B2P"));
        harness.pass(1000);
        compare(bubble(), "");
        // Two clicks or taps take the gain back; a hollow handle only chooses its band.
        for (let tap = 0; tap < 2; ++tap)
            holdFinger(handle, 24, 24, () => {});
        compare(gain.value, 0);
        verify(sentLater().includes("O1B2P0F"));
        const slider = find("band", "frequency", "levelSlider");
        mousePress(slider, 30, 30);
        verify(bubble().endsWith("kHz, 0 dB"), bubble());
        mouseRelease(slider, 30, 30);
        play("> U1O1B7P0F200\n> U1O1B7BYPASS");
        const hollow = find("handle7");
        drag(hollow, 24, 24, 40, -20);
        mouseRelease(hollow, 64, 4);
        compare(find("band").band, 6);
        compare(sentLater(), "");
    }
    function test_a_band_is_typed_bypassed_and_brought_back() {
        openEqualiser(360, 640);
        play("> U1O1B1P-4F3150\n> U1O1B2HPF80\n> U1O1B3BYPASS");
        compare([1, 2, 3, 4].map(band => !!seen("handle" + band)).join(), "true,true,false,false", "what was never set is nowhere");
        const level = name => find("band", name, "level").text;
        compare([level("frequency"), level("gain")].join(), "3.15 kHz,\u22124 dB");
        const type = (name, text) => {
            mouseClick(find("band", name, "level"));
            for (const letter of text)
                keyClick(letter);
            keyClick(Qt.Key_Return);
        };
        type("frequency", "63 ");
        compare(sentLater(), "[U1O1B1P-4F63]");
        play("> U1O1B1P-4F63");
        type("gain", "-16");
        compare(sentLater(), "", "no band has it");
        keyClick(Qt.Key_Backspace);
        keyClick("5");
        keyClick(Qt.Key_Return);
        compare(sentLater(), "[U1O1B1P-15F63]");
        play("> U1O1B1P-15F63");
        for (const command of ["[U1O1B1BYPASS]", "[U1O1B1P-15F63]"]) {
            mouseClick(find("band", "type", "segment0"));
            compare(sentLater(), command);
            play(command.replace("[", "> ").replace("]", ""));
        }
        // A pass has a frequency only.
        mouseClick(find("bandChoice", "segment1"));
        verify(find("band", "frequency", "level") && !seen("band", "gain", "level"));
    }
    // Whatever the size and the language, the name of a type is whole, and small windows need not scroll.
    function test_the_equaliser_fits_data() {
        return ["en", "de", "fr", "es"].map(language => ({ tag: language }));
    }
    function test_the_equaliser_fits(data) {
        harness.speak(data.tag);
        for (const [low, high, scale] of [[480, 640, 1], [900, 900, 1], [900, 900, 1.5]]) {
            Theme.textScale = scale;
            openEqualiser(360, high);
            play(["BYPASS", "HPF50", "HS3F50", "LPF50", "LS3F50", "P3F50", "P3F50"].map((type, band) => "> U1O1B" + (band + 1) + type).join("\n"));
            for (let width = 320; width <= 1920; width += 40) {
                window.width = width;
                window.height = width % 80 && width >= 600 ? low : high;
                waitForRendering(window.contentItem, 60);
                const where = [data.tag, width, window.height, scale].join(" ");
                const types = items(window.contentItem, item => item.objectName === "type");
                verify(types.length === 1 || (types.length === 7 && width >= 1150), where + ": " + types.length);
                const names = [].concat(...types.map(type => items(type, item => item.truncated !== undefined)));
                const whole = names.filter(name => !name.truncated && name.contentWidth <= name.width);
                compare([names.length, whole.length], [6 * types.length, 6 * types.length], where);
                const page = items(window.contentItem, item => item.maximumWidth)[0];
                verify(scale > 1 || width < 360 || page.contentHeight <= page.height, where + ": " + page.contentHeight + " of " + page.height);
                verify(scale > 1 || width < 1280 || window.height < 900 || find("plot").grid.height >= 300, where);
            }
        }
    }

    // What a finger goes on doing after the slider has come to stand for another item, or has gone out of sight.
    function test_hands_are_off_data() {
        return [
            { tag: "another item is picked", away: () => find("zonePicker").picker.pick(1, "Zone 2") },
            { tag: "the rows go", away: () => play("> U1O1Z2") },
            { tag: "another tab", away: () => harness.app.selectTab(1), back: () => harness.app.selectTab(0) },
            { tag: "an alert", away: () => play("error"), back: () => harness.app.alert.dismiss() },
            { tag: "the settings", away: () => harness.app.settings.open(), back: () => harness.app.settings.cancel() },
            { tag: "the window is hidden", away: () => window.visible = false, back: () => window.visible = true },
            { tag: "the window is turned", away: () => [window.width, window.height] = [640, 360] }
        ];
    }
    function test_hands_are_off(data) {
        open();
        play("> U1Z1V-40\n> U1Z2V-70");
        const slider = find("volumeSlider");
        const y = slider.height / 2;
        drag(slider, 20, y, 30, 0);
        verify(slider.slider.held && slider.value > -40);
        let before = 0;
        for (const [act, x] of [[data.away, 60], [data.back || (() => {}), 90]]) {
            sentLater();
            act();
            wait(0);
            sentLater();
            before = before || slider.value;
            mouseMove(slider, x - 10, y);
            mouseMove(slider, x, y);
            verify(!slider.slider.held && !/V-?[0-9]/.test(sentLater()), x);
        }
        mouseRelease(slider, 90, y);
        compare(slider.value, before);
        verify(!/V-?[0-9]/.test(sentLater()));
    }
    // The page scrolls under a pointer that stays: what comes under it is not turned.
    function test_scrolling_turns_nothing() {
        open(640, 360);
        const slider = find("volumeSlider");
        const page = items(window.contentItem, item => item.contentY !== undefined && item.maximumWidth)[0];
        verify(page.contentHeight > page.height + 100);
        const place = slider.mapToItem(window.contentItem, slider.width / 2, slider.height / 2);
        page.contentY = 150;
        for (let notch = 0; notch < 12; ++notch)
            mouseWheel(window.contentItem, place.x, place.y, 0, 120);
        compare([page.contentY, slider.value], [0, -40]);
        // At rest, the wheel turns what has the focus, and nothing else.
        for (const [item, shown] of [[slider, () => slider.value], [find("zonePicker"), () => find("zonePicker", "list").currentIndex]])
            for (const focused of [false, true]) {
                (focused ? item : find("muteSwitch")).forceActiveFocus();
                wait(450);
                page.contentY = 0;
                wait(450);
                const before = shown();
                mouseWheel(item, 30, 40, 0, -120);
                tryVerify(() => page.contentY > 0 || shown() !== before);
                compare([page.contentY > 0, shown() !== before], [!focused, focused]);
            }
    }

    function test_the_keyboard_is_never_lost() {
        openEqualiser(360, 640);
        play("> U1O1B1P0F1000");
        const slider = find("band", "gain", "levelSlider");
        slider.forceActiveFocus();
        play("> U1O1B1BYPASS");
        verify(!slider.enabled);
        const first = window.activeFocusItem;
        verify(first && first.visible && first.enabled && (first.activeFocusOnTab || first.focusPolicy), "a slider was disabled");
        window.height = 900;
        window.width = 1280;
        tryVerify(() => !seen("partChoice"));
        find("volumeSlider").forceActiveFocus();
        window.width = 360;
        find("partChoice");
        verify(window.activeFocusItem.visible && window.activeFocusItem !== window.contentItem, "its part went out of sight");
        const gear = find("settingsButton");
        gear.forceActiveFocus();
        for (const key of [Qt.Key_Space, Qt.Key_Escape])
            keyClick(key) || wait(0);
        compare(window.activeFocusItem, gear);
        const passed = new Set();
        for (let step = 0; step < 60; ++step) {
            keyClick(Qt.Key_Tab);
            passed.add(window.activeFocusItem);
        }
        verify(passed.size >= 15 && passed.has(gear), "Tab must come round");
        const frames = () => items(window.contentItem, item => item.of !== undefined).length;
        compare(frames(), 1);
        open();
        for (const pressed of [find("zonePicker", "list").itemAtIndex(0), find("muteSwitch"), find("volumeSlider")]) {
            mouseClick(pressed);
            verify(window.activeFocusItem.activeFocusOnTab || window.activeFocusItem.focusPolicy);
            compare(frames(), 0, "a press shows no outline");
        }
        keyClick(Qt.Key_Tab);
        compare(frames(), 1);
    }

    // What a screen reader is told: a role that fits, a name that says what and where, a value, a state.
    function test_what_assistive_technology_finds_data() {
        return [
            { tag: "zone", finds: ["Heading; Zones", "StaticText; Unit at 192.168.1.50, Connected; read only", "Button; Settings",
                    "List; Zone, %1 %2", "ListItem; %1 %2, Source 1, 50 percent; on", "List; %1 %2 input, Source 1", "ListItem; Source 2",
                    "Slider; %1 %2 volume, 50 percent; -40 of -80 to 0", "Slider; %1 %2 bass, unknown; 0 of -15 to 15",
                    "Button; %1 %2 volume, louder", "CheckBox; %1 %2 mute, off; off", "PageTab; Zones; on", "PageTab; Scenes"] },
            { tag: "override", finds: ["CheckBox; Override 10, unknown; off", "PageTab; Overrides; on"] },
            { tag: "scene", finds: ["RadioButton; Scene, Scene 1; on", "RadioButton; Scene, Scene 10; off", "Button; Recall Scene 1", "Button; Store Scene 1"] },
            { tag: "settings", finds: ["Pane; Settings", "EditableText; IP address", "RadioButton; Unit number, 1; on",
                    "RadioButton; Unit number, 4; off", "CheckBox; State queries, on; on", "Button; Done"] },
            { tag: "output", finds: ["List; Output, Output 1", "Slider; Output 1 volume, -40 decibels; -40 of -80 to 0",
                    "CheckBox; Output 1 power, unknown; off", "RadioButton; Output 1 type 7, Bypass; off",
                    "RadioButton; Output 1 type 1, Parametric; on", "Slider; Output 1 gain 1, 3 decibels; 3 of -15 to 15",
                    "Slider; Output 1 gain 7, unknown; 0 of -15 to 15; read only",
                    "Slider; Output 1 band 1, 1 kilohertz, 3 decibels; 3 of -15 to 15"] }
        ];
    }
    function test_what_assistive_technology_finds(data) {
        open(1280, 900, data.tag === "output" ? advanced : "");
        play("> U1Z1N\"%1 %2\"\n> U1O1Z1\n> U1Z1V-40\n> U1Z1I1\n> U1APPQ0\n> U1O1V-40\n> U1O1B1P3F1000");
        show(data.tag);
        const found = harness.accessible(window);
        for (const line of data.finds)
            verify(found.includes(line), line + " in " + found.filter(other => other.startsWith(line.slice(0, 18))).join("\n"));
        for (const line of found)
            verify(!/^[^;]*; *(;|$)/.test(line), "without a name: " + line);
    }
    function test_assistive_technology_and_two_fingers_act() {
        open(1280, 800);
        play("> U1Z1V-40");
        for (const [name, action, command] of [["Zone 1 mute, off", "Toggle", "[U1Z1M1]"], ["Zone 1 loudness, unknown", "Press", "[U1Z1LD1]"],
            ["Zone 1 volume, 50 percent", "Increase", "[U1Z1V-39]"], ["Zone 1 bass, unknown", "Decrease", "[U1Z1BASS-1]"],
            ["Source 2", "Press", "[U1Z1I2]"]]) {
            verify(harness.actOn(window, name, action), name);
            compare(sentLater(), command);
        }
        // Two fingers, two sliders.
        const sliders = ["bass", "treble"].map(name => find(name, "levelSlider"));
        const before = sliders.map(slider => slider.value);
        const touch = touchEvent(window);
        sliders.forEach((slider, finger) => touch.press(finger, slider, 100, 20).commit());
        for (let step = 1; step <= 10; ++step)
            touch.move(0, sliders[0], 100 + 6 * step, 20).move(1, sliders[1], 100 - 6 * step, 20).commit();
        verify(sliders[0].value > before[0] && sliders[1].value < before[1], sliders.map(slider => slider.value));
        touch.release(0, sliders[0], 160, 20).release(1, sliders[1], 40, 20).commit();
        verify(harness.actOn(window, "Scenes", "Press"));
        compare(harness.app.screen.name, "scene");
    }

    // As the Web Content Accessibility Guidelines 2.1 define relative luminance and contrast.
    function contrast(...colors) {
        const linear = part => part <= 0.03928 ? part / 12.92 : Math.pow((part + 0.055) / 1.055, 2.4);
        const luminance = color => 0.2126 * linear(color.r) + 0.7152 * linear(color.g) + 0.0722 * linear(color.b);
        const [dark, light] = colors.map(luminance).sort((a, b) => a - b);
        return (light + 0.05) / (dark + 0.05);
    }
    function test_texts_can_be_read() {
        // Certain, and then not: whatever is locked or silent has the colours of what is not certain.
        const surfaces = ["background", "surface", "raised"];
        for (const current of [true, false]) {
            Theme.current = current;
            for (const [least, colors, grounds] of [
                [4.5, ["text", "dimText", "accent", "good", "waiting", "bad", "value", "silence", "staleText"], surfaces],
                [4.5, ["accentText"], ["accent", "live", "silence", "stale", "waiting"]], [3, ["outline", "live", "stale", "silence"], surfaces]])
                for (const color of colors)
                    for (const ground of grounds)
                        verify(contrast(Theme[color], Theme[ground]) >= least, [color, "on", ground, current].join(" "));
        }
        // Nothing else makes them fainter.
        open();
        play("> U1Z1V-40\n> U1Z1M1\n> U1APPQ0\nend");
        compare(items(window.contentItem, item => item.text && item.opacity < 1 || item.objectName === "thumb" && item.color.a < 1).join(), "");
        verify(Qt.colorEqual(find("volumeText").color, Theme.staleText) && seen("thumb"));
    }

    // The equaliser is on two pages the second.
    function show(screen) {
        const names = { settings: ["settingsButton"], equaliser: ["partChoice", "segment1"] }[screen] || ["tab-" + screen];
        waitForRendering(window.contentItem, 50);
        if (screen !== "equaliser" || seen("partChoice"))
            mouseClick(find(...names));
        harness.pass(20);
        waitForRendering(window.contentItem, 100);
    }
    function test_a_finger_needs_48_pixels_and_texts_their_room() {
        for (const [width, height, scale] of [[360, 640, 1], [800, 480, 1], [1280, 800, 1], [360, 640, 2], [800, 480, 2], [1280, 800, 2]])
            for (const screens of [["zone", "group", "override", "scene", "settings"], ["output", "equaliser"]]) {
                Theme.textScale = scale;
                open(width, height, screens.length === 2 ? advanced : "");
                play("> U1O1Z1\n> U1O2Z2\n> U1Z1V-79\n> U1O1B1P-14F19999\n> U1O1B4P3F5000");
                for (const item of scale > 1 ? ["Z1", "Z2", "O1", "O2", "G1", "G2", "I1", "I2", "S1", "S2"] : [])
                    play("> U1" + item + "N\"WWWWWWWWWWWWWWWW\"");
                for (const screen of screens) {
                    show(screen);
                    const targets = items(window.contentItem, item => item.activeFocusOnTab || item.focusPolicy);
                    verify(targets.length >= 6, screen);
                    for (const item of targets)
                        verify(item.width >= 48 && item.height >= 48, [width, height, screen, item, item.objectName, item.width, item.height]);
                    const texts = items(window.contentItem, item => item.truncated !== undefined && item.text !== "");
                    verify(texts.length >= 10, texts.length);
                    for (const text of texts) {
                        const what = [width, height, screen, scale, text.text, text.contentWidth, text.width].join(" ");
                        verify(text.truncated || text.contentWidth <= text.width + 1, "cut without an ellipsis: " + what);
                        verify(text.contentHeight <= text.height + 1, "cut in its height: " + what);
                        const left = text.mapToItem(window.contentItem, 0, 0).x;
                        verify(left >= 0 && left + text.width <= window.width + 1, "out of the window: " + what);
                    }
                }
            }
    }
    function test_a_text_that_is_cut_is_shown_whole() {
        open();
        play("> U1Z1N\"WWWWWWWWWWWWWWWW\"\n> U1O1Z1\n> U1O2Z2");
        const cut = find("zonePicker", "list").itemAtIndex(0);
        verify(cut.truncated);
        const tip = find("tip");
        const isShown = () => tip.item && tip.item.whole.visible && tip.item.whole.text === cut.text;
        mouseMove(cut, cut.width / 2, cut.height / 2);
        tryVerify(isShown);
        verify(tip.item.whole.contentWidth > cut.width, "the tip is as narrow as what it should show whole");
        const mute = find("muteSwitch");
        mouseMove(mute);
        tryCompare(tip, "item", null);
        verify(mute.hovered, "the watcher of tips must not cover what is below it");
        // A finger that stays shows it too, and picks nothing.
        holdFinger(cut, cut.width / 2, cut.height / 2, () => tryVerify(isShown));
        tryCompare(tip, "item", null);
        compare(harness.sent(), "");
    }

    // The scenario that both front ends play.
    function carryOut(line) {
        const [verb, name, value] = line.split(" ");
        const within = { bassSlider: ["bass", "levelSlider"], trebleSlider: ["treble", "levelSlider"],
            filterGain1: ["band1", "gain", "levelSlider"], filterType1: ["band1", "type", "segment" + value] }[name] || [name];
        const step = (item, steps, more, less) => {
            item.forceActiveFocus();
            for (let left = Math.abs(steps); left > 0; --left)
                keyClick(steps > 0 ? more : less);
        };
        if (["~", "set", "app"].includes(verb))
            play(line.replace(/^(~|app) /, ""));
        else if (verb === "tab")
            show(name);
        else if (verb === "slide")
            step(find(...within), value - find(...within).value, Qt.Key_Right, Qt.Key_Left);
        else if (verb === "pick" && !seen(name, "list"))
            mouseClick(find(name, "row" + value));
        else if (verb === "pick") {
            step(find(name, "list"), value - find(name, "list").currentIndex, Qt.Key_Down, Qt.Key_Up);
            keyClick(Qt.Key_Return);
            tryVerify(() => find(name).picker.selected === Number(value) && find(name).resting !== false);
        } else
            mouseClick(find(...within));
        if (name === "saveSceneButton")
            mouseClick(find("replaceButton"));
        harness.pass(20);
    }
    function test_both_front_ends_leave_the_same() {
        const expected = harness.playOnConsole();
        verify(expected.length > 10);
        open(1280, 900);
        for (const line of harness.scenario()) {
            carryOut(line);
            if (line.startsWith("~ wait"))
                compare(harness.leftBehind(), expected.shift(), "after " + line);
        }
        compare(expected.length, 0);
    }
}

import QtQuick
import QtTest
import Lumbra.Touch

// The scenario that both front ends play.
TestCase {
    id: test

    property Main window: null
    property var sliders: ({
            bassSlider: ["bass", "levelSlider"],
            trebleSlider: ["treble", "levelSlider"],
            filterGain1: ["band1", "gain", "levelSlider"]
        })

    name: "Scenario"
    when: windowShown

    Component {
        id: mainWindow

        Main {
            visible: true
        }
    }

    // Screens that were on show stay, hidden, with controls of the same names.
    function seek(item, name) {
        for (let at = 0; at < item.children.length; ++at) {
            const child = item.children[at];
            const found = !child.visible ? null : child.objectName === name ? child : seek(child, name);
            if (found)
                return found;
        }
        return null;
    }
    function find(names) {
        let item = window.contentItem;
        for (const name of names) {
            tryVerify(() => seek(item, name) !== null, 5000, name);
            item = seek(item, name);
        }
        return item;
    }
    function turn(name, row) {
        const picker = find([name]);
        const list = findChild(picker, "list");
        picker.forceActiveFocus();
        for (let steps = row - list.currentIndex; steps !== 0; steps -= Math.sign(steps))
            keyClick(steps > 0 ? Qt.Key_Down : Qt.Key_Up);
        tryCompare(picker.picker, "selected", row);
        tryCompare(picker, "resting", true);
    }
    function slide(name, value) {
        const slider = find(sliders[name] || [name]);
        slider.forceActiveFocus();
        const steps = value - slider.value;
        for (let step = 0; step < Math.abs(steps); ++step)
            keyClick(steps > 0 ? Qt.Key_Right : Qt.Key_Left);
        compare(slider.value, value);
    }
    function carryOut(line) {
        const words = line.split(" ");
        switch (words[0]) {
        case "~":
            compare(harness.play(line.slice(2)), "", line);
            break;
        case "tab":
            mouseClick(find(["tab-" + words[1]]));
            break;
        case "pick":
            turn(words[1], Number(words[2]));
            break;
        case "slide":
            slide(words[1], Number(words[2]));
            break;
        case "switch":
            mouseClick(find([words[1]]));
            break;
        case "segment":
            mouseClick(find(["band1", "type", "segment" + words[2]]));
            break;
        case "press":
            mouseClick(find([words[1]]));
            break;
        case "app":
            harness.setWindowHidden(words[1] === "away");
            break;
        case "set":
            compare(harness.play(line), "", line);
            break;
        default:
            fail("no gesture for: " + line);
        }
        harness.pass(20);
        waitForRendering(window.contentItem, 100);
    }

    function test_both_front_ends_leave_the_same() {
        const expected = harness.playOnConsole();
        verify(expected.length > 10);
        harness.start();
        window = createTemporaryObject(mainWindow, test, {
            app: harness.app,
            width: 1280,
            height: 800
        });
        verify(window);
        waitForRendering(window.contentItem);
        harness.sent();
        let passed = 0;
        for (const line of harness.scenario()) {
            carryOut(line);
            if (line.startsWith("~ wait"))
                compare(harness.leftBehind(), expected[passed++], "after " + line + " number " + passed);
        }
        compare(passed, expected.length);
    }
    function cleanup() {
        if (window) {
            window.destroy();
            window = null;
            wait(0);
        }
        harness.stop();
    }
}

import QtQuick
import Lumbra.Touch

/// A band's handle in the plot. A drag moves the sliders of the band's frequency and gain, as a drag of these
/// would; with Shift it moves them by a tenth. A double tap sets 0 dB. The handle of a bypassed band is hollow
/// and only chooses its band.
Item {
    id: root

    required property int band
    required property ScreenAdapter screen
    required property EqPlot plot
    /// The band being edited.
    required property int editedBand
    /// The handles of all bands.
    required property Repeater handles
    /// The name of the output, for screen readers.
    required property string where

    readonly property SegmentedAdapter type: screen.segmented("filterType" + (band + 1))
    readonly property SliderAdapter frequency: screen.slider("filterFreq" + (band + 1))
    readonly property SliderAdapter gain: screen.slider("filterGain" + (band + 1))

    readonly property bool edited: band === editedBand
    readonly property bool hollow: !frequency.enabled
    /// Of handles at the same place, the lowest is on top and takes a touch: one that can be moved, of these
    /// the edited one or else the first.
    readonly property int rank: (hollow ? 10 : 0) + (edited ? -1 : band)
    /// A hand holds one of the sliders, or has just moved the handle by a step.
    readonly property bool moving: !hollow && (frequency.held || gain.held || stepped.running)
    readonly property string setting: BandText.shown(frequency.value, gain.value, gain.enabled)

    // The property names from which assistive technology reads a value: here the gain.
    readonly property real value: gain.value
    readonly property real minimumValue: gain.minimum
    readonly property real maximumValue: gain.maximum

    signal chosen

    /// Whether this handle takes a touch at a place in the plot: the nearest one does.
    function isNearest(x: real, y: real): bool {
        const distance = item => Math.hypot(item.x + item.width / 2 - x, item.y + item.height / 2 - y);
        const own = distance(root);
        for (let other = 0; other < handles.count; ++other) {
            const item = handles.itemAt(other) as BandHandle;
            if (other === band || !item || !item.visible)
                continue;
            const its = distance(item);
            if (its < own || (its === own && item.rank < rank))
                return false;
        }
        return own <= Theme.target / 2;
    }
    function step(slider: SliderAdapter, difference: real) {
        if (!slider.enabled)
            return;
        slider.moveBy(difference);
        stepped.restart();
    }

    x: frequency.position * parent.width - width / 2
    y: plot.yOf(gain.enabled ? gain.value : 0, parent.height) - height / 2
    z: 20 - rank
    // One that was never set is nowhere.
    visible: !hollow || frequency.known
    width: Theme.target
    height: Theme.target
    // Where handles overlap, the nearest one takes the touch.
    containmentMask: QtObject {
        function contains(place: point): bool {
            return root.isNearest(root.x + place.x, root.y + place.y);
        }
    }
    activeFocusOnTab: true
    Keys.onPressed: event => {
        event.accepted = true;
        switch (event.key) {
        case Qt.Key_Left:
            step(frequency, -25);
            break;
        case Qt.Key_Right:
            step(frequency, 25);
            break;
        case Qt.Key_Up:
            step(gain, 1);
            break;
        case Qt.Key_Down:
            step(gain, -1);
            break;
        default:
            event.accepted = false;
        }
    }
    onActiveFocusChanged: {
        if (activeFocus)
            chosen();
        else
            stepped.stop();
    }

    Accessible.role: Accessible.Slider
    Accessible.name: Speech.format(qsTr("%1 band %2, %3"), [where, band + 1, !type.known ? qsTr("unknown") : hollow ? type.segments[type.selected] : BandText.spoken(frequency.value, gain.value, gain.enabled)])
    Accessible.onIncreaseAction: step(gain, 1)
    Accessible.onDecreaseAction: step(gain, -1)
    Accessible.focusable: true
    // Qt has no accessible state for a disabled control.
    Accessible.readOnly: hollow

    Rectangle {
        objectName: "disc"
        anchors.centerIn: parent
        width: 2 * root.plot.handleRadius
        height: width
        radius: width / 2
        color: root.hollow ? Theme.surface : root.edited ? Theme.live : Theme.raised
        border.color: root.activeFocus ? Theme.text : root.hollow && !root.edited ? Theme.outline : Theme.live
        border.width: root.activeFocus ? 3 : 2

        Text {
            anchors.centerIn: parent
            text: root.band + 1
            textFormat: Text.PlainText
            font.pixelSize: 14
            font.bold: true
            color: root.hollow ? Theme.dimText : root.edited ? Theme.accentText : Theme.value
            Accessible.ignored: true
        }
    }

    // How long a step shows its bubble.
    Timer {
        id: stepped

        interval: 1500
    }
    SliderGrab {
        id: frequencyGrab

        slider: root.frequency
    }
    SliderGrab {
        id: gainGrab

        slider: root.gain
    }
    PointHandler {
        enabled: root.visible
        acceptedButtons: Qt.LeftButton
        onActiveChanged: {
            if (active) {
                frequencyGrab.begin();
                gainGrab.begin();
                root.forceActiveFocus(Qt.MouseFocusReason);
                root.chosen();
            } else {
                frequencyGrab.end();
                gainGrab.end();
            }
        }
    }
    TapHandler {
        enabled: root.visible
        acceptedButtons: Qt.LeftButton
        onDoubleTapped: {
            if (root.gain.moveToValue(0))
                stepped.restart();
        }
    }
    DragHandler {
        property real fromPosition: 0
        property real fromGain: 0
        /// The last place of the finger, and how far it has moved the handle.
        property point last
        property point moved

        target: null
        enabled: root.visible && !root.hollow
        dragThreshold: 3
        acceptedButtons: Qt.LeftButton
        grabPermissions: PointerHandler.CanTakeOverFromAnything
        onActiveChanged: {
            last = centroid.scenePosition;
            moved = Qt.point(0, 0);
            fromPosition = root.frequency.position;
            fromGain = root.gain.value;
            if (active) {
                frequencyGrab.dragToPosition(fromPosition);
                gainGrab.dragToValue(fromGain);
            }
        }
        onCentroidChanged: {
            if (!active || !(root.parent.width > 0 && root.parent.height > 0))
                return;
            const share = centroid.modifiers & Qt.ShiftModifier ? 0.1 : 1;
            moved.x += share * (centroid.scenePosition.x - last.x);
            moved.y += share * (centroid.scenePosition.y - last.y);
            last = centroid.scenePosition;
            frequencyGrab.dragToPosition(fromPosition + moved.x / root.parent.width);
            gainGrab.dragToValue(fromGain + root.plot.decibelsOf(moved.y, root.parent.height));
        }
    }
}

import QtQuick
import Lumbra.Touch

/// A band's handle in the plot. A drag moves the sliders of the band's frequency and gain, as a drag of these
/// would.
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

    readonly property SliderAdapter frequency: screen.slider("filterFreq" + (band + 1))
    readonly property SliderAdapter gain: screen.slider("filterGain" + (band + 1))
    readonly property LabelAdapter frequencyLabel: screen.label("freqLabel" + (band + 1))
    readonly property LabelAdapter gainLabel: screen.label("gainLabel" + (band + 1))

    readonly property bool edited: band === editedBand

    // The property names from which assistive technology reads a value: here the gain.
    readonly property real value: gain.value
    readonly property real minimumValue: gain.minimum
    readonly property real maximumValue: gain.maximum

    signal chosen

    /// Whether this handle takes a touch at a place in the plot: the nearest one does; of several at the same
    /// place, the edited one or else the first.
    function isNearest(x: real, y: real): bool {
        const rank = other => other === editedBand ? -1 : other;
        const distance = item => Math.hypot(item.x + item.width / 2 - x, item.y + item.height / 2 - y);
        const own = distance(root);
        for (let other = 0; other < handles.count; ++other) {
            const item = handles.itemAt(other);
            if (other === band || !item || !item.visible)
                continue;
            const its = distance(item);
            if (its < own || (its === own && rank(other) < rank(band)))
                return false;
        }
        return own <= Theme.target / 2;
    }

    x: frequency.position * parent.width - width / 2
    y: plot.yOf(gain.enabled ? gain.value : 0, parent.height) - height / 2
    z: edited ? 1 : 0
    width: Theme.target
    height: Theme.target
    visible: frequency.enabled
    onVisibleChanged: {
        if (!visible && activeFocus)
            nextItemInFocusChain(false).forceActiveFocus(Qt.OtherFocusReason);
    }
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
            frequency.moveBy(-25);
            break;
        case Qt.Key_Right:
            frequency.moveBy(25);
            break;
        case Qt.Key_Up:
            gain.moveBy(1);
            break;
        case Qt.Key_Down:
            gain.moveBy(-1);
            break;
        default:
            event.accepted = false;
        }
    }
    onActiveFocusChanged: {
        if (activeFocus)
            chosen();
    }

    Accessible.role: Accessible.Slider
    Accessible.name: Speech.format(qsTr("%1 band %2, %3, %4"), [where, band + 1, frequencyLabel.spoken, gainLabel.spoken])
    Accessible.onIncreaseAction: gain.moveBy(1)
    Accessible.onDecreaseAction: gain.moveBy(-1)
    Accessible.focusable: true

    Rectangle {
        anchors.centerIn: parent
        width: 28
        height: 28
        radius: 14
        color: root.edited ? Theme.accent : Theme.raised
        border.color: root.activeFocus ? Theme.text : Theme.accent
        border.width: root.activeFocus ? 3 : 2

        Text {
            anchors.centerIn: parent
            text: root.band + 1
            textFormat: Text.PlainText
            font.pixelSize: 14
            font.bold: true
            color: root.edited ? Theme.accentText : Theme.text
            Accessible.ignored: true
        }
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
            } else {
                frequencyGrab.end();
                gainGrab.end();
            }
        }
    }
    DragHandler {
        property point from
        property real fromPosition: 0
        property real fromGain: 0

        target: null
        enabled: root.visible
        dragThreshold: 3
        acceptedButtons: Qt.LeftButton
        grabPermissions: PointerHandler.CanTakeOverFromAnything
        onActiveChanged: {
            from = centroid.scenePosition;
            fromPosition = root.frequency.position;
            fromGain = root.gain.value;
        }
        onCentroidChanged: {
            if (!active || !(root.parent.width > 0 && root.parent.height > 0))
                return;
            frequencyGrab.dragToPosition(fromPosition + (centroid.scenePosition.x - from.x) / root.parent.width);
            gainGrab.dragToValue(fromGain + root.plot.decibelsOf(centroid.scenePosition.y - from.y, root.parent.height));
        }
    }
}

import QtQuick
import Lumbra.Touch

/// A band's handle in the plot: a drag moves the band's frequency and gain sliders, as a hand on them would.
Item {
    id: root

    required property int band
    required property ScreenAdapter screen
    required property EqPlot plot
    required property bool edited
    /// The output that it belongs to, for a screen reader.
    required property string where

    readonly property SliderAdapter frequency: screen.slider("filterFreq" + (band + 1))
    readonly property SliderAdapter gain: screen.slider("filterGain" + (band + 1))
    readonly property LabelAdapter frequencyLabel: screen.label("freqLabel" + (band + 1))
    readonly property LabelAdapter gainLabel: screen.label("gainLabel" + (band + 1))

    // The names under which assistive technology reads a value: the gain.
    readonly property real value: gain.value
    readonly property real minimumValue: gain.minimum
    readonly property real maximumValue: gain.maximum

    signal chosen

    x: frequency.position * parent.width - width / 2
    y: plot.yOf(gain.enabled ? gain.value : 0, parent.height) - height / 2
    z: edited ? 1 : 0
    width: Theme.target
    height: Theme.target
    visible: frequency.enabled
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
    Accessible.name: qsTr("%1 band %2, %3, %4").arg(where).arg(band + 1).arg(frequencyLabel.spoken).arg(gainLabel.spoken)
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

    PointHandler {
        acceptedButtons: Qt.LeftButton
        onActiveChanged: {
            if (active) {
                root.frequency.grab();
                root.gain.grab();
                root.forceActiveFocus(Qt.MouseFocusReason);
            } else {
                root.frequency.release();
                root.gain.release();
            }
        }
    }
    DragHandler {
        property point from
        property real fromPosition: 0
        property real fromGain: 0

        target: null
        dragThreshold: 3
        acceptedButtons: Qt.LeftButton
        grabPermissions: PointerHandler.CanTakeOverFromAnything
        onActiveChanged: {
            from = centroid.scenePosition;
            fromPosition = root.frequency.position;
            fromGain = root.gain.value;
        }
        onCentroidChanged: {
            if (!active)
                return;
            root.frequency.moveToPosition(fromPosition + (centroid.scenePosition.x - from.x) / root.parent.width);
            root.gain.moveToValue(fromGain + root.plot.decibelsOf(centroid.scenePosition.y - from.y, root.parent.height));
        }
    }
}

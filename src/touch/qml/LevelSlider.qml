pragma ComponentBehavior: Bound
import QtQuick
import Lumbra.Touch

/// A slider that never jumps: a drag moves the thumb by as much as the finger moves, wherever the press was.
/// The arrow keys move it by small steps, the Page keys by larger ones, and the mouse wheel by small steps while it has
/// the keyboard focus.
Item {
    id: root

    required property SliderAdapter slider
    /// The name and the value for screen readers.
    required property string label
    required property string spokenValue
    property real stepSize: 1
    property real pageSize: 5
    /// Home and End move to the ends.
    property bool endKeys: true
    property int thickness: 6
    /// What it moves is heard.
    property bool heard: true
    readonly property color color: enabled && heard ? Theme.live : Theme.stale
    /// The position from which the track is filled. It is marked, unless it is the beginning.
    property real fillFrom: 0
    /// While it is held, the value that the user has set is shown over the thumb.
    property bool bubble: false

    // The property names from which assistive technology reads a slider.
    readonly property real value: slider.value
    readonly property real minimumValue: slider.minimum
    readonly property real maximumValue: slider.limit

    property bool lostFocus: false
    /// A press, not the keyboard, has moved the focus here.
    property bool byHand: false
    readonly property bool visualFocus: activeFocus && !byHand
    /// There is a value to show.
    readonly property bool valued: slider.known || slider.held

    function step(key: int): bool {
        switch (key) {
        case Qt.Key_Left:
        case Qt.Key_Down:
            slider.moveBy(-stepSize);
            return true;
        case Qt.Key_Right:
        case Qt.Key_Up:
            slider.moveBy(stepSize);
            return true;
        case Qt.Key_PageDown:
            slider.moveBy(-pageSize);
            return true;
        case Qt.Key_PageUp:
            slider.moveBy(pageSize);
            return true;
        case Qt.Key_Home:
        case Qt.Key_End:
            if (endKeys)
                slider.moveToPosition(key === Qt.Key_Home ? 0 : 1);
            return true;
        }
        return false;
    }

    implicitHeight: Theme.target
    implicitWidth: 120
    enabled: slider.enabled
    activeFocusOnTab: true
    Keys.onPressed: event => event.accepted = step(event.key)
    // If the slider is disabled while the keyboard is on it, the focus moves to the previous control. A focus
    // that a press has set goes nowhere: nobody asked for the keyboard.
    onActiveFocusChanged: {
        if (activeFocus)
            return;
        lostFocus = !enabled && !byHand;
        byHand = false;
    }
    onEnabledChanged: {
        if (!enabled && lostFocus)
            nextItemInFocusChain(false).forceActiveFocus(Qt.OtherFocusReason);
        lostFocus = false;
    }

    Accessible.role: Accessible.Slider
    Accessible.name: Speech.format(qsTr("%1, %2"), [label, spokenValue])
    Accessible.focusable: true
    // Qt has no accessible state for a disabled control.
    Accessible.readOnly: !enabled
    Accessible.onIncreaseAction: slider.moveBy(stepSize)
    Accessible.onDecreaseAction: slider.moveBy(-stepSize)

    Item {
        id: track

        anchors.fill: parent
        anchors.leftMargin: thumb.width / 2
        anchors.rightMargin: thumb.width / 2

        Rectangle {
            anchors.verticalCenter: parent.verticalCenter
            width: parent.width
            height: root.thickness
            radius: height / 2
            color: Theme.raised
            border.color: Theme.outline
            border.width: 1
        }
        Rectangle {
            objectName: "limit"
            anchors.verticalCenter: parent.verticalCenter
            visible: root.slider.limitPosition < 1
            x: root.slider.limitPosition * parent.width - width / 2
            width: 3
            height: root.thickness + 16
            radius: 1
            color: Theme.silence
        }
        Rectangle {
            anchors.verticalCenter: parent.verticalCenter
            visible: root.valued
            x: Math.min(root.fillFrom, root.slider.position) * parent.width
            width: Math.abs(root.slider.position - root.fillFrom) * parent.width
            height: root.thickness
            radius: height / 2
            color: root.color
        }
        Rectangle {
            anchors.verticalCenter: parent.verticalCenter
            visible: root.fillFrom > 0
            x: root.fillFrom * parent.width - width / 2
            width: 2
            height: root.thickness + 14
            color: Theme.dimText
        }
        Rectangle {
            id: thumb

            objectName: "thumb"
            visible: root.valued
            x: root.slider.position * parent.width - width / 2
            anchors.verticalCenter: parent.verticalCenter
            width: Math.max(24, root.thickness * 1.6)
            height: width
            radius: width / 2
            color: !root.enabled ? Theme.surface : root.slider.held ? root.color : Theme.value
            border.color: root.enabled && !Theme.current ? Theme.surface : root.color
            border.width: 3
        }
    }
    Loader {
        readonly property bool shown: root.bubble && root.slider.held

        x: Math.max(0, Math.min(root.width - width, track.x + thumb.x + (thumb.width - width) / 2))
        y: thumb.y - height - 4
        onShownChanged: {
            if (shown)
                setSource("ValueBubble.qml", {
                    slider: root.slider
                });
            else
                setSource("");
        }
    }
    FocusFrame {
        of: root
    }

    SliderGrab {
        id: grab

        slider: root.slider
    }
    PointHandler {
        enabled: root.visible
        acceptedButtons: Qt.LeftButton
        onActiveChanged: {
            if (active) {
                grab.begin();
                root.forceActiveFocus(Qt.MouseFocusReason);
                root.byHand = true;
            } else {
                grab.end();
            }
        }
    }
    DragHandler {
        property real fromX: 0
        property real fromPosition: 0

        target: null
        enabled: root.visible
        // Once this slider moves, the page must not scroll.
        grabPermissions: PointerHandler.CanTakeOverFromAnything
        yAxis.enabled: false
        acceptedButtons: Qt.LeftButton
        onActiveChanged: {
            fromX = centroid.scenePosition.x;
            fromPosition = root.slider.position;
            if (active)
                grab.dragToPosition(fromPosition);
        }
        onCentroidChanged: {
            if (active && track.width > 0)
                grab.dragToPosition(fromPosition + (centroid.scenePosition.x - fromX) / track.width);
        }
    }
    WheelHandler {
        property real turned: 0

        // Else the page scrolls.
        enabled: root.activeFocus
        acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad
        onWheel: event => {
            turned += event.angleDelta.y / 120;
            const notches = Math.trunc(turned);
            if (notches !== 0) {
                turned -= notches;
                root.slider.moveBy(notches * root.stepSize);
            }
        }
    }
}

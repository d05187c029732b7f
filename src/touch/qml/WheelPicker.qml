pragma ComponentBehavior: Bound
import QtQuick
import Lumbra.Touch

/// A wheel of rows with the selected one in the middle. A fling picks once, where it ends. A touch on the
/// moving wheel stops it without a pick. A tap on the middle row picks it again; a tap on another row picks
/// that. The arrow keys turn it, and so does the mouse wheel while it has the keyboard focus; it picks when it has come
/// to rest.
Item {
    id: root

    required property PickerAdapter picker
    property int visibleRows: 3
    /// The middle row can be read from two metres.
    property bool large: false
    /// How long a wheel that was stopped waits for another touch before it returns to the selected row, in
    /// ms.
    property int patience: 4000
    /// The name of the item, for screen readers; empty if the picker selects the item itself.
    property string where: ""

    readonly property bool resting: !list.moving && !settle.running && !linger.running
    readonly property int rowHeight: Theme.row
    /// The row in the middle, which differs from the selected one while the user turns the wheel.
    readonly property alias middleRow: list.currentIndex
    /// The row that the mouse wheel and the keys have turned to.
    property int target: -1

    /// The text of the target row when the wheel was turned to it.
    property string targetText: ""
    /// The user has moved the wheel by touch, and it shows a row that is not picked, or not yet.
    readonly property bool loose: list.moving || linger.running

    /// A press, not the keyboard, has moved the focus here.
    property bool byHand: false
    readonly property bool visualFocus: activeFocus && !byHand

    onActiveFocusChanged: {
        if (!activeFocus)
            byHand = false;
    }

    function takeFocus() {
        forceActiveFocus(Qt.MouseFocusReason);
        byHand = true;
    }
    /// Scrolls the page, which would not see a turn of the mouse wheel over the list.
    function scrollPage(angle: real) {
        let page = parent;
        while (page && !(page instanceof Flickable))
            page = page.parent;
        if (page)
            page.contentY = Math.max(0, Math.min(page.contentHeight - page.height, page.contentY - angle / 120 * Theme.row));
    }
    function follow() {
        // A timer fires before `resting` is updated.
        if (!list.moving && !settle.running && !linger.running && list.currentIndex !== picker.selected)
            list.currentIndex = picker.selected;
    }
    function pick(row: int, text: string) {
        halt();
        settle.stop();
        linger.stop();
        picker.pick(row, text);
        follow();
    }
    function pickMiddle() {
        pick(list.currentIndex, picker.textAt(list.currentIndex));
    }
    function turnBy(rows: int) {
        halt();
        const from = settle.running ? target : list.currentIndex;
        target = Math.max(0, Math.min(list.count - 1, from + rows));
        targetText = picker.textAt(target);
        linger.stop();
        settle.restart();
        list.currentIndex = target;
    }
    /// Stops a wheel that moves by itself, without a pick.
    function halt() {
        if (!list.flicking)
            return;
        list.stopped = true;
        list.cancelFlick();
    }
    /// Picks the row to which the keys or the mouse wheel have turned, without a delay.
    function commit() {
        if (settle.running)
            pick(target, targetText);
    }

    // The property names from which assistive technology reads a value: here the number of the row.
    readonly property int value: picker.selected + 1
    readonly property int minimumValue: 1
    readonly property int maximumValue: picker.count

    implicitHeight: rowHeight * visibleRows + caption.height + Theme.smallGap
    implicitWidth: 150
    activeFocusOnTab: true

    Keys.onUpPressed: turnBy(-1)
    Keys.onDownPressed: turnBy(1)
    Keys.onPressed: event => {
        event.accepted = true;
        switch (event.key) {
        case Qt.Key_PageUp:
            turnBy(-visibleRows);
            break;
        case Qt.Key_PageDown:
            turnBy(visibleRows);
            break;
        case Qt.Key_Home:
            turnBy(-list.count);
            break;
        case Qt.Key_End:
            turnBy(list.count);
            break;
        case Qt.Key_Return:
        case Qt.Key_Enter:
        case Qt.Key_Space:
            pickMiddle();
            break;
        default:
            event.accepted = false;
        }
    }

    Accessible.role: Accessible.SpinBox
    Accessible.name: Speech.format(qsTr("%1, %2"), [picker.spokenName(where), picker.shownText])
    Accessible.focusable: true
    Accessible.onIncreaseAction: turnBy(1)
    Accessible.onDecreaseAction: turnBy(-1)
    Accessible.onPressAction: pickMiddle()

    Connections {
        target: root.picker
        function onChanged() {
            root.follow();
        }
    }
    // A turn by the mouse wheel or the keys picks once no other one follows.
    Timer {
        id: settle

        interval: 300
        onTriggered: root.pick(root.target, root.targetText)
    }
    // A wheel that was stopped waits for another touch, then returns to the selected row.
    Timer {
        id: linger

        interval: root.patience
        onTriggered: root.follow()
    }

    FittedText {
        id: caption

        width: parent.width
        text: root.picker.caption
        color: Theme.dimText
        font.pixelSize: Theme.smallText
        Accessible.ignored: true
    }
    Card {
        anchors.fill: parent
        anchors.topMargin: caption.height + Theme.smallGap

        Rectangle {
            y: list.preferredHighlightBegin
            width: parent.width
            height: root.rowHeight
            color: root.resting && root.picker.known ? Theme.raised : "transparent"
            border.color: root.resting ? Theme.raised : Theme.accent
            border.width: 1
            radius: Theme.radius
        }
        ListView {
            id: list

            /// The last touch stopped the moving wheel and has not turned it since.
            property bool stopped: false

            function center() {
                forceLayout();
                root.follow(); // the layout of a size in between may have moved the current row
                if (!moving)
                    positionViewAtIndex(currentIndex, ListView.SnapPosition);
            }

            objectName: "list"
            anchors.fill: parent
            clip: true
            model: root.picker.rows
            // Rows are cheap to create; cached ones delay the removal of rows.
            cacheBuffer: 0
            keyNavigationEnabled: false
            snapMode: ListView.SnapToItem
            highlightRangeMode: ListView.StrictlyEnforceRange
            preferredHighlightBegin: (height - root.rowHeight) / 2
            preferredHighlightEnd: preferredHighlightBegin + root.rowHeight
            highlightMoveDuration: 0
            highlightMoveVelocity: -1
            flickDeceleration: 2500
            Accessible.ignored: true

            onMovementStarted: {
                settle.stop();
                linger.stop();
            }
            onDraggingChanged: {
                if (dragging)
                    stopped = false;
            }
            onMovementEnded: {
                if (stopped) {
                    stopped = false;
                    if (currentIndex !== root.picker.selected)
                        linger.restart();
                } else {
                    root.pickMiddle();
                }
            }
            // A list keeps its content position when it is resized or loses rows, which moves the middle.
            onPreferredHighlightEndChanged: center()
            onCountChanged: {
                root.follow();
                center();
            }
            Component.onCompleted: {
                root.follow();
                highlightMoveDuration = 150;
            }

            delegate: WheelRow {
                width: ListView.view.width
                height: root.rowHeight
                inMiddle: ListView.isCurrentItem && (root.picker.known || !root.resting)
                large: root.large
                moving: list.moving
                onPicked: (row, text) => {
                    root.takeFocus();
                    root.pick(row, text);
                }
            }
        }
        // Above the list, so that it sees a press before the list stops. It turns by whole rows.
        Item {
            anchors.fill: list

            PointHandler {
                onActiveChanged: {
                    if (active)
                        list.stopped = list.moving;
                }
            }
            WheelHandler {
                property real turned: 0

                acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad
                onWheel: event => {
                    if (!root.activeFocus) {
                        root.scrollPage(event.angleDelta.y);
                        return;
                    }
                    turned += event.angleDelta.y / 120;
                    const notches = Math.trunc(turned);
                    if (notches !== 0) {
                        turned -= notches;
                        root.turnBy(-notches);
                    }
                }
            }
        }
        FocusFrame {
            of: root
        }
    }
}

pragma ComponentBehavior: Bound
import QtQuick
import Lumbra.Touch

/// The rows of a picker as a list under the picker's caption. A tap picks; the arrow keys move a mark, and
/// Return picks the marked row.
FocusScope {
    id: root

    required property PickerAdapter picker
    /// The rows, and how one looks: a PickRow.
    property alias model: grid.model
    property alias delegate: grid.delegate
    property int columns: 1
    readonly property alias cellWidth: grid.cellWidth
    property int rowHeight: Theme.row
    /// The name of the item, for screen readers; empty if the picker selects the item itself.
    property string where: ""
    /// The focus is here, and not because of a tap.
    property bool keyed: false

    function pick(row: int, text: string) {
        grid.forceActiveFocus(Qt.MouseFocusReason);
        keyed = false;
        picker.pick(row, text);
    }
    function pickMarked() {
        picker.pick(grid.currentIndex, picker.textAt(grid.currentIndex));
    }

    implicitWidth: 200
    implicitHeight: caption.height + Theme.smallGap + 3 * rowHeight
    Accessible.role: Accessible.List
    Accessible.name: Speech.format(qsTr("%1, %2"), [picker.spokenName(where), picker.shownText])

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
        clip: true

        GridView {
            id: grid

            objectName: "list"
            anchors.fill: parent
            focus: true
            activeFocusOnTab: true
            cellWidth: width / root.columns
            cellHeight: root.rowHeight
            cacheBuffer: 0
            boundsBehavior: Flickable.StopAtBounds
            highlightMoveDuration: 0
            Keys.onPressed: root.keyed = true
            Keys.onReturnPressed: root.pickMarked()
            Keys.onEnterPressed: root.pickMarked()
            Keys.onSpacePressed: root.pickMarked()
            onActiveFocusChanged: {
                root.keyed = activeFocus;
                currentIndex = root.picker.selected;
            }
            Component.onCompleted: {
                currentIndex = root.picker.selected;
                positionViewAtIndex(currentIndex, GridView.Center);
            }
            onHeightChanged: positionViewAtIndex(root.picker.selected, GridView.Contain)
        }
        Connections {
            target: root.picker
            function onChanged() {
                if (!grid.moving)
                    grid.currentIndex = root.picker.selected;
            }
        }
        ScrollMark {
            view: grid
        }
    }
}

pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Layouts
import Lumbra.Touch

/// The rows of a picker as tiles. A tap picks, also the tile that is selected.
Item {
    id: root

    required property PickerAdapter picker
    property int tileHeight: 56

    implicitHeight: grid.implicitHeight
    implicitWidth: 320
    Accessible.role: Accessible.Grouping
    Accessible.name: picker.caption

    GridLayout {
        id: grid

        width: parent.width
        // Ten tiles fill two columns or five.
        columns: root.width < 5 * 110 * Theme.textScale ? 2 : 5
        columnSpacing: Theme.smallGap
        rowSpacing: Theme.smallGap

        Repeater {
            model: root.picker.rows

            Segment {
                id: tile

                required property int index
                required property var model
                /// The text when the tile was pressed.
                property string seen: ""

                objectName: "row" + index
                Layout.fillWidth: true
                Layout.preferredWidth: 1
                implicitHeight: Math.max(root.tileHeight, Theme.row)
                leftPadding: 10
                rightPadding: 10
                outlined: true
                name: root.picker.caption
                text: model.display
                selected: index === root.picker.selected
                onPressed: seen = text
                onClicked: {
                    root.picker.pick(index, seen || text);
                    seen = "";
                }
                onCanceled: seen = ""
            }
        }
    }
}

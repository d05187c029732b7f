pragma ComponentBehavior: Bound
import QtQuick
import Lumbra.Touch

/// The inputs to pick from for the selected item.
PickList {
    id: root

    model: picker.rows
    delegate: PickRow {
        id: row

        required property int index
        required property string display

        width: root.cellWidth
        height: root.rowHeight
        text: display
        selected: index === root.picker.selected && root.picker.known
        marked: GridView.isCurrentItem && root.keyed
        onPicked: text => root.pick(index, text)

        FittedText {
            anchors.fill: parent
            leftPadding: 18
            rightPadding: 8
            text: row.display
            font.bold: row.selected
            color: root.picker.enabled ? Theme.value : Theme.staleText
            Accessible.ignored: true
        }
    }
}

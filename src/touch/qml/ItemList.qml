pragma ComponentBehavior: Bound
import QtQuick
import Lumbra.Touch

/// All items of the screen with their input, level and mute, as the unit has reported them, and what it has been asked
/// for since.
PickList {
    id: root

    required property ItemListAdapter items

    model: items.rows
    rowHeight: Math.max(56, Math.round(Theme.row * 1.17))
    delegate: PickRow {
        id: row

        required property int index
        required property string name
        required property string input
        required property string askedInput
        required property string level
        required property string askedLevel
        required property string condition
        required spoken

        width: root.cellWidth
        height: root.rowHeight
        text: name
        selected: index === root.picker.selected
        marked: GridView.isCurrentItem && root.keyed
        onPicked: text => root.pick(index, text)

        Column {
            anchors.left: parent.left
            anchors.leftMargin: 18
            anchors.right: levels.left
            anchors.rightMargin: Theme.smallGap
            anchors.verticalCenter: parent.verticalCenter

            FittedText {
                width: parent.width
                text: row.name
                font.bold: row.selected
                color: Theme.value
                Accessible.ignored: true
            }
            FittedText {
                width: parent.width
                text: row.askedInput === "" ? row.input : row.input + " \u2192 " + row.askedInput
                color: Theme.current ? Theme.dimText : Theme.staleText
                font.pixelSize: Theme.smallText
                Accessible.ignored: true
            }
        }
        Column {
            id: levels

            anchors.right: parent.right
            anchors.rightMargin: 14
            anchors.verticalCenter: parent.verticalCenter

            FittedText {
                anchors.right: parent.right
                text: row.level
                color: row.condition === "" ? Theme.value : Theme.staleText
                font.pixelSize: Theme.titleText
                Accessible.ignored: true
            }
            Row {
                anchors.right: parent.right
                spacing: Theme.smallGap

                FittedText {
                    visible: row.askedLevel !== ""
                    text: "\u2192 " + row.askedLevel
                    color: Theme.dimText
                    font.pixelSize: Theme.smallText
                    Accessible.ignored: true
                }
                FittedText {
                    visible: text !== ""
                    text: row.condition
                    color: Theme.silence
                    font.pixelSize: Theme.smallText
                    Accessible.ignored: true
                }
            }
        }
    }
}

pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Layouts

/// Segments, one of them selected, in as many rows as they need.
Item {
    id: root

    required property var choices
    required property int selected
    /// One that a press brings back, with an outline; -1 if there is none.
    property int former: -1
    /// The name for screen readers.
    required property string name
    property int columns: Math.max(1, Math.min(choices.length, Math.floor(width / (80 * Theme.textScale))))
    property int textSize: Theme.bodyText
    property int rowHeight: Theme.row

    signal chosen(choice: int)

    implicitHeight: grid.implicitHeight
    implicitWidth: 160
    Accessible.role: Accessible.Grouping
    Accessible.name: name

    GridLayout {
        id: grid

        width: parent.width
        columns: root.columns
        // The gaps are part of the segments, so that a touch between two segments still hits one.
        columnSpacing: 0
        rowSpacing: 0

        Repeater {
            model: root.choices

            Segment {
                required property int index
                required property string modelData

                objectName: "segment" + index
                Layout.fillWidth: true
                Layout.preferredWidth: 1
                implicitHeight: root.rowHeight
                name: root.name
                text: modelData
                textSize: root.textSize
                selected: index === root.selected
                recalled: index === root.former
                onClicked: root.chosen(index)
            }
        }
    }
}

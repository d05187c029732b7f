pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Layouts
import Lumbra.Touch

/// Two switches beside each other; one above the other where large texts need the room.
GridLayout {
    id: root

    required property ScreenAdapter screen
    /// The item that they belong to, for a screen reader.
    required property string where
    required property list<string> names
    required property bool wide

    columns: Theme.textScale > 1.3 && !wide ? 1 : 2
    columnSpacing: Theme.gap
    rowSpacing: Theme.gap

    Repeater {
        model: root.names

        SwitchRow {
            required property string modelData

            objectName: modelData
            Layout.fillWidth: true
            Layout.preferredWidth: 1
            adapter: root.screen.onOff(modelData)
            where: root.where
        }
    }
}

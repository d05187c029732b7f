import QtQuick
import QtQuick.Layouts
import Lumbra.Touch

/// Two switches side by side, or one above the other if their captions need the room.
GridLayout {
    id: root

    required property ScreenAdapter screen
    /// The name of the item, for screen readers.
    required property string where
    /// The names of the two switches.
    required property string first
    required property string second

    columns: width < 2 * Math.max(one.implicitWidth, other.implicitWidth) + columnSpacing ? 1 : 2
    columnSpacing: Theme.gap
    rowSpacing: Theme.gap

    SwitchRow {
        id: one

        objectName: root.first
        Layout.fillWidth: true
        Layout.preferredWidth: 1
        adapter: root.screen.onOff(root.first)
        color: root.first === "muteSwitch" ? Theme.silence : Theme.live
        where: root.where
    }
    SwitchRow {
        id: other

        objectName: root.second
        Layout.fillWidth: true
        Layout.preferredWidth: 1
        adapter: root.screen.onOff(root.second)
        where: root.where
    }
}

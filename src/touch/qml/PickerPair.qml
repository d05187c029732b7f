import QtQuick
import QtQuick.Layouts
import Lumbra.Touch

/// The wheels of the items and of the selected item's input, side by side.
RowLayout {
    id: root

    required property ScreenAdapter screen
    /// The name of the picker of the items.
    required property string items
    property int visibleRows: 3

    spacing: Theme.gap
    Component.onCompleted: screen.setItemPicker(items)

    WheelPicker {
        id: item

        objectName: root.items
        Layout.fillWidth: true
        Layout.preferredWidth: 1
        picker: root.screen.picker(root.items)
        visibleRows: root.visibleRows
    }
    WheelPicker {
        objectName: "sourcePicker"
        Layout.fillWidth: true
        Layout.preferredWidth: 1
        picker: root.screen.picker("sourcePicker")
        where: item.picker.selectedText
        visibleRows: root.visibleRows
    }
}

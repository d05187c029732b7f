import QtQuick
import QtQuick.Layouts
import Lumbra.Touch

/// The items, and the inputs of the selected item. In a wide window the items are a list with their levels,
/// else a wheel. The inputs are a list unless the window is low.
GridLayout {
    id: root

    required property ScreenAdapter screen
    /// The name of the picker of the items.
    required property string items
    property int visibleRows: 3
    /// The lists stand on top of each other, not side by side.
    property bool stacked: false
    readonly property bool listed: Window.width >= Theme.railWidth
    readonly property bool inputsListed: Window.height >= Theme.listHeight
    readonly property PickerAdapter itemPicker: screen.picker(items)

    columns: listed && stacked ? 1 : 2
    columnSpacing: Theme.gap
    rowSpacing: Theme.gap
    Component.onCompleted: show()
    onListedChanged: show()
    onInputsListedChanged: show()

    function show() {
        if (listed)
            itemPart.setSource("ItemList.qml", {
                objectName: items,
                picker: itemPicker,
                items: screen.items
            });
        else
            itemPart.setSource("WheelPicker.qml", {
                objectName: items,
                picker: itemPicker
            });
        inputPart.setSource(inputsListed ? "InputList.qml" : "WheelPicker.qml", {
            objectName: "sourcePicker",
            picker: screen.picker("sourcePicker")
        });
    }

    Loader {
        id: itemPart

        Layout.fillWidth: true
        Layout.fillHeight: true
        Layout.preferredWidth: 3
        Layout.preferredHeight: root.listed && root.stacked ? 3 : -1
    }
    Loader {
        id: inputPart

        // Behind the first frame, which shows the items.
        asynchronous: true
        Layout.fillWidth: true
        Layout.fillHeight: true
        Layout.preferredWidth: root.listed ? 2 : 3
        Layout.preferredHeight: root.listed && root.stacked ? 2 : -1
    }
    Binding {
        target: inputPart.item
        property: "where"
        value: root.itemPicker.selectedText
    }
    Binding {
        target: root.listed ? null : itemPart.item
        property: "visibleRows"
        value: root.visibleRows
    }
    Binding {
        target: root.inputsListed ? null : inputPart.item
        property: "visibleRows"
        value: root.visibleRows
    }
    Binding {
        target: root.listed ? itemPart.item : null
        property: "columns"
        // No column is too narrow for a name and its level.
        value: Math.max(1, Math.min(root.Window.width >= 2200 ? 3 : root.Window.width >= 1600 ? 2 : 1, Math.floor(itemPart.width / (260 * Theme.textScale))))
    }
    Binding {
        target: root.listed ? null : itemPart.item
        property: "large"
        value: root.Window.width >= Theme.largeWidth
    }
}

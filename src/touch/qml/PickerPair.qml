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
    /// The columns of the list of items.
    property int itemColumns: Window.width >= 2200 ? 3 : Window.width >= 1600 ? 2 : 1
    readonly property bool listed: Window.width >= Theme.railWidth
    readonly property bool inputsListed: Window.height >= Theme.listHeight
    readonly property PickerAdapter itemPicker: screen.picker(items)

    columns: listed && stacked ? 1 : 2
    columnSpacing: Theme.gap
    rowSpacing: Theme.gap
    Component.onCompleted: {
        screen.setItemPicker(items);
        show();
    }
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
        value: root.itemColumns
    }
}

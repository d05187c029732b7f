import QtQuick
import Lumbra.Touch

/// One row of a list to pick from. A tap picks it; a row that is renamed under the finger is not picked.
Rectangle {
    id: root

    /// The row's text in the picker.
    required property string text
    property bool selected: false
    /// The keyboard is on this row.
    property bool marked: false
    /// What a screen reader says.
    property string spoken: text

    signal picked(text: string)

    color: selected || tap.pressed ? Theme.raised : hover.hovered ? Theme.hover : "transparent"
    radius: Theme.radius
    border.color: Theme.accent
    border.width: marked ? 2 : 0
    Accessible.role: Accessible.ListItem
    Accessible.name: spoken
    Accessible.selectable: true
    Accessible.selected: selected
    Accessible.onPressAction: picked(text)

    Rectangle {
        visible: root.selected
        x: 4
        width: 4
        height: parent.height - 16
        anchors.verticalCenter: parent.verticalCenter
        radius: 2
        color: Theme.live
    }
    HoverHandler {
        id: hover

        acceptedDevices: PointerDevice.Mouse
    }
    TapHandler {
        id: tap

        property string seen: ""

        onPressedChanged: {
            if (pressed)
                seen = root.text;
        }
        onTapped: root.picked(seen)
    }
}

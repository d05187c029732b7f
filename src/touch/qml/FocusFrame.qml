import QtQuick

/// The outline of the control to which the keyboard has moved the focus. A press shows none.
Rectangle {
    /// A control, or an item with a `visualFocus` of its own.
    required property var of

    anchors.fill: parent
    anchors.margins: -2
    z: 1
    visible: of.visualFocus
    color: "transparent"
    border.color: Theme.accent
    border.width: 2
    radius: Theme.radius
}

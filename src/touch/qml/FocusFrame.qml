import QtQuick

/// The outline of the control that has the keyboard focus.
Rectangle {
    required property Item of

    anchors.fill: parent
    anchors.margins: -2
    z: 1
    visible: of.activeFocus
    color: "transparent"
    border.color: Theme.accent
    border.width: 2
    radius: Theme.radius
}

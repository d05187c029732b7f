import QtQuick
import QtQuick.Controls.Basic

/// Shows a text whole while the pointer rests on it or a finger stays on it.
Item {
    id: root

    required property Text of

    objectName: "tip"
    ToolTip.visible: hover.hovered || finger.active
    ToolTip.delay: 500
    ToolTip.text: root.of.text

    HoverHandler {
        id: hover
    }
    PointHandler {
        id: finger
    }
}

import QtQuick
import QtQuick.Controls.Basic

/// Shows a text whole while the pointer rests on it or a finger stays on it.
Item {
    id: root

    property string text

    ToolTip.visible: hover.hovered || finger.active
    ToolTip.delay: 500
    ToolTip.text: text

    HoverHandler {
        id: hover
    }
    PointHandler {
        id: finger
    }
}

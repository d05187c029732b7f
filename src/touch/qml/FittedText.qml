pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Controls.Basic

/// A line of plain text that ends in an ellipsis where it doesn't fit; the whole text then shows while the pointer
/// rests on it or a finger stays on it.
Text {
    id: root

    color: Theme.text
    font.pixelSize: Theme.bodyText
    textFormat: Text.PlainText
    elide: Text.ElideRight
    verticalAlignment: Text.AlignVCenter

    Loader {
        anchors.fill: parent
        active: root.truncated
        sourceComponent: Item {
            ToolTip.visible: hover.hovered || point.active
            ToolTip.delay: 500
            ToolTip.text: root.text

            HoverHandler {
                id: hover
            }
            PointHandler {
                id: point
            }
        }
    }
}

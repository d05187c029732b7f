import QtQuick
import QtQuick.Controls.Basic

/// Shows a text whole, beside where it stands.
Item {
    required property string text

    ToolTip.visible: true
    ToolTip.delay: 500
    ToolTip.text: text
}

import QtQuick
import QtQuick.Templates as T

/// Shows a text in full, on top of its elided form.
Item {
    id: root

    required property string text
    readonly property Text whole: Text {
        text: root.text
        textFormat: Text.PlainText
        wrapMode: Text.Wrap
        color: Theme.text
        font.pixelSize: Theme.bodyText
    }

    T.ToolTip {
        x: (parent.width - width) / 2
        y: -height - 4
        implicitWidth: Math.min(root.whole.implicitWidth + leftPadding + rightPadding, root.Window.width - 2 * margins)
        implicitHeight: contentHeight + topPadding + bottomPadding
        margins: 6
        padding: 10
        delay: 500
        visible: true
        closePolicy: T.Popup.NoAutoClose
        text: root.text

        contentItem: root.whole
        background: Rectangle {
            color: Theme.raised
            border.color: Theme.outline
            radius: 6
        }
    }
}

import QtQuick

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
        readonly property bool needed: root.truncated

        anchors.fill: parent
        onNeededChanged: needed ? setSource("TextTip.qml", {
            of: root
        }) : setSource("")
    }
}

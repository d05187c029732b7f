import QtQuick

/// A switch of the settings with a sentence on what it does.
SwitchBase {
    id: root

    required property string explanation

    implicitHeight: Math.ceil(caption.implicitHeight + words.implicitHeight) + 22
    bottomPadding: words.implicitHeight + 8
    Accessible.description: explanation

    Text {
        id: words

        x: root.leftPadding
        width: root.width - x - root.rightPadding - root.indicator.width - Theme.gap
        anchors.bottom: parent.bottom
        anchors.bottomMargin: 9
        text: root.explanation
        textFormat: Text.PlainText
        wrapMode: Text.Wrap
        color: Theme.dimText
        font.pixelSize: Theme.smallText
        Accessible.ignored: true
    }
}

import QtQuick
import Lumbra.Touch

/// The value that the user has set, over the thumb of a slider.
Rectangle {
    id: root

    required property SliderAdapter slider

    implicitWidth: words.implicitWidth + 16
    implicitHeight: words.implicitHeight + 6
    radius: Theme.smallGap
    color: Theme.accent

    Text {
        id: words

        objectName: "bubble"
        anchors.centerIn: parent
        text: root.slider.reading
        textFormat: Text.PlainText
        color: Theme.accentText
        font.pixelSize: Theme.bodyText
        font.bold: true
        Accessible.ignored: true
    }
}

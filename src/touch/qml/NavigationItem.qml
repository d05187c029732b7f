import QtQuick
import QtQuick.Templates as T

/// One tab of the bar or the rail. (Assistive technology derives the role of a control from its type.)
T.TabButton {
    id: root

    required property url iconSource
    property bool selected: false

    readonly property Item face: Item {
        implicitHeight: column.implicitHeight

        HoldToRead {
            button: root
            caption: words
        }
        Column {
            id: column

            anchors.centerIn: parent
            width: parent.width
            spacing: 2

            Image {
                anchors.horizontalCenter: parent.horizontalCenter
                source: root.iconSource
                sourceSize.width: 24
                sourceSize.height: 24
                asynchronous: true
                opacity: root.selected ? 1 : 0.75
            }
            FittedText {
                id: words

                width: parent.width
                text: root.text
                horizontalAlignment: Text.AlignHCenter
                font.pixelSize: Theme.smallText
                font.bold: root.selected
                color: root.selected ? Theme.text : Theme.dimText
                fontSizeMode: Text.HorizontalFit
                minimumPixelSize: Theme.tinyText
                Accessible.ignored: true
            }
        }
    }

    implicitHeight: Math.max(56, implicitContentHeight + 12)
    implicitWidth: 84
    checkable: false
    Accessible.name: text
    Accessible.selected: selected
    Accessible.onPressAction: clicked()
    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()

    background: Rectangle {
        color: root.selected ? Theme.raised : "transparent"
        radius: Theme.radius
        opacity: root.down ? 0.7 : 1

        FocusFrame {
            of: root
            anchors.margins: 1
        }
    }
    contentItem: face
}

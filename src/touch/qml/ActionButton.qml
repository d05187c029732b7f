import QtQuick
import QtQuick.Templates as T

/// A button that acts immediately.
T.Button {
    id: root

    property bool prominent: false
    /// What a prominent one is filled with.
    property color tone: Theme.accent

    readonly property FittedText caption: FittedText {
        text: root.text
        font: root.font
        color: !root.enabled ? Theme.staleText : root.prominent ? Theme.accentText : Theme.text
        horizontalAlignment: Text.AlignHCenter
    }
    readonly property HoldToRead reading: HoldToRead {
        button: root
        caption: root.caption
    }

    implicitHeight: Theme.row
    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    leftPadding: 16
    rightPadding: 16
    font.pixelSize: Theme.bodyText
    hoverEnabled: true
    Accessible.role: Accessible.Button
    Accessible.name: text
    Accessible.onPressAction: clicked()
    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()

    contentItem: caption
    background: Rectangle {
        readonly property bool bright: root.prominent && root.enabled
        readonly property color base: bright ? root.tone : Theme.raised

        radius: Theme.radius
        color: root.hovered ? Qt.lighter(base, 1.2) : base
        opacity: root.down ? 0.7 : 1
        border.color: bright ? root.tone : Theme.outline
        border.width: 1

        FocusFrame {
            of: root
            border.color: root.prominent ? Theme.text : Theme.accent
        }
    }
}

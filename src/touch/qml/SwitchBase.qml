import QtQuick
import QtQuick.Templates as T
import Lumbra.Touch

/// The look and behaviour of every switch: shows `on`, if that is known, and requests a change with `flipped`.
T.Switch {
    id: root

    required property bool on
    property bool known: true
    /// Of the switch where it is on.
    property color color: Theme.live
    readonly property color shade: enabled ? color : Theme.stale
    property string spokenName: text

    readonly property FittedText caption: FittedText {
        text: root.text
        font: root.font
        color: root.enabled ? Theme.value : Theme.staleText
        rightPadding: root.indicator.width + Theme.smallGap
        Accessible.ignored: true
    }

    signal flipped(on: bool)

    implicitHeight: Math.max(Theme.row, 56)
    // The caption has room for the indicator beside it.
    implicitWidth: Math.ceil(caption.implicitWidth) + 1 + leftPadding + rightPadding
    leftPadding: 14
    rightPadding: 14
    font.pixelSize: Theme.bodyText
    hoverEnabled: true
    checked: known && on
    onToggled: {
        checked = Qt.binding(() => root.known && root.on);
        flipped(!on);
    }
    Keys.onReturnPressed: flipped(!on)
    Keys.onEnterPressed: flipped(!on)

    Accessible.role: Accessible.CheckBox
    Accessible.name: Speech.format(qsTr("%1, %2"), [spokenName, !known ? qsTr("unknown") : on ? qsTr("on") : qsTr("off")])
    Accessible.checkable: true
    Accessible.readOnly: !enabled
    Accessible.checked: checked
    Accessible.checkStateMixed: !known
    Accessible.onPressAction: flipped(!on)
    Accessible.onToggleAction: flipped(!on)

    readonly property HoldToRead reading: HoldToRead {
        button: root
        caption: root.caption
    }

    contentItem: caption
    indicator: Rectangle {
        x: root.width - width - root.rightPadding
        y: (root.height - height) / 2
        width: 52
        height: 30
        radius: height / 2
        color: root.checked ? root.shade : Theme.raised
        border.color: root.checked ? root.shade : Theme.outline
        border.width: 2

        Rectangle {
            x: !root.known ? (parent.width - width) / 2 : root.checked ? parent.width - width - 4 : 4
            anchors.verticalCenter: parent.verticalCenter
            width: root.known ? 22 : 14
            height: root.known ? 22 : 3
            radius: height / 2
            color: root.checked ? Theme.accentText : Theme.dimText
        }
    }
    background: Card {
        color: root.hovered ? Theme.hover : Theme.surface

        FocusFrame {
            of: root
        }
    }
}

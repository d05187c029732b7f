import QtQuick
import QtQuick.Templates as T
import Lumbra.Touch

/// One of several choices. (Assistive technology derives the role of a control from its type.)
T.RadioButton {
    id: root

    property bool selected: false
    /// What is chosen, for screen readers.
    required property string name
    property int textSize: Theme.bodyText
    /// What is selected is only chosen, not on: it has an outline.
    property bool outlined: false
    /// What was selected before, and can be brought back.
    property bool recalled: false
    readonly property bool filled: selected && enabled && !outlined

    readonly property FittedText caption: FittedText {
        text: root.text
        horizontalAlignment: Text.AlignHCenter
        font.pixelSize: root.textSize
        font.bold: root.selected
        fontSizeMode: Text.HorizontalFit
        minimumPixelSize: Theme.tinyText
        color: !root.enabled ? Theme.staleText : root.filled ? Theme.accentText : Theme.value
        Accessible.ignored: true
    }
    readonly property HoldToRead reading: HoldToRead {
        button: root
        caption: root.caption
    }

    implicitHeight: Theme.row
    leftInset: 1
    rightInset: 1
    topInset: 1
    bottomInset: 1
    hoverEnabled: true
    checkable: false
    autoExclusive: false
    Accessible.name: Speech.format(qsTr("%1, %2"), [root.name, text])
    Accessible.checkable: true
    Accessible.checked: selected
    Accessible.onPressAction: clicked()
    Accessible.onToggleAction: clicked()
    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()

    contentItem: caption
    background: Rectangle {
        readonly property color base: root.filled ? Theme.live : Theme.raised

        radius: 6
        border.color: root.selected && root.enabled ? Theme.live : Theme.outline
        border.width: root.filled ? 0 : root.selected ? 3 : root.recalled ? 2 : root.outlined ? 1 : 0
        color: root.hovered ? Qt.lighter(base, 1.2) : base
        opacity: root.down ? 0.7 : 1

        FocusFrame {
            of: root
            border.color: Theme.text
        }
    }
}

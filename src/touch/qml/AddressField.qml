import QtQuick
import QtQuick.Controls.Basic

/// A field for the address of the unit, with a hint about one that was not accepted. The hint covers what is below it,
/// so that nothing moves under a finger.
FocusScope {
    id: root

    property alias text: field.text
    property string hint: ""
    /// The name for screen readers.
    required property string name

    signal edited(text: string)
    signal accepted

    implicitHeight: field.implicitHeight
    z: 1

    TextField {
        id: field

        objectName: "addressField"
        width: parent.width
        implicitHeight: Theme.row
        focus: true
        onTextEdited: root.edited(text)
        onAccepted: root.accepted()
        inputMethodHints: Qt.ImhNoAutoUppercase | Qt.ImhNoPredictiveText | Qt.ImhPreferNumbers
        selectByMouse: true
        font.pixelSize: Theme.bodyText
        placeholderText: "192.168.1.50"
        placeholderTextColor: Theme.stale
        color: Theme.text
        selectionColor: Theme.accent
        selectedTextColor: Theme.accentText
        Accessible.role: Accessible.EditableText
        Accessible.name: root.name
        Accessible.description: root.hint
        background: Rectangle {
            color: Theme.surface
            radius: Theme.radius
            border.color: field.activeFocus ? Theme.accent : Theme.outline
            border.width: field.activeFocus ? 2 : 1
        }
    }
    Rectangle {
        anchors.top: field.bottom
        anchors.topMargin: 4
        width: parent.width
        height: words.height + 2 * Theme.smallGap
        visible: root.hint !== ""
        radius: Theme.smallGap
        color: Theme.raised
        border.color: Theme.waiting
        border.width: 1

        Text {
            id: words

            objectName: "addressHint"
            x: Theme.gap
            anchors.verticalCenter: parent.verticalCenter
            width: parent.width - 2 * x
            text: root.hint
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            color: Theme.waiting
            font.pixelSize: Theme.smallText
        }
    }
}

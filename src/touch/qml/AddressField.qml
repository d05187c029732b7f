import QtQuick
import QtQuick.Controls.Basic

/// A field for the address of the unit, with a hint below it about an unusual one.
FocusScope {
    id: root

    property alias text: field.text
    property string hint: ""
    /// The name for screen readers.
    required property string name

    signal edited(text: string)
    signal accepted

    implicitHeight: column.implicitHeight

    Column {
        id: column

        width: parent.width
        spacing: Theme.smallGap

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
        Text {
            objectName: "addressHint"
            width: parent.width
            visible: text !== ""
            text: root.hint
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            color: Theme.waiting
            font.pixelSize: Theme.smallText
        }
    }
}

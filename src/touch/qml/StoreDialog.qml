import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts
import QtQuick.Templates as T
import Lumbra.Touch

/// Asks before a scene is replaced. It closes without an answer as soon as the scene, its name or what is on show
/// changes: what it would store is what it names.
Dialog {
    id: root

    required property ScreenAdapter screen
    /// The button that stores.
    required property SceneButton button
    /// The keyboard asked: it sees where the focus is.
    required property bool byKeyboard
    readonly property string question: Speech.format(qsTr("Replace what is stored as \"%1\"? This can't be undone."), [button.where])

    anchors.centerIn: T.Overlay.overlay
    width: Math.min(420, T.Overlay.overlay ? T.Overlay.overlay.width - 2 * Theme.gap : 420)
    padding: 20
    modal: true
    closePolicy: Popup.CloseOnEscape
    enter: null
    exit: null
    visible: true
    focus: true

    T.Overlay.modal: Rectangle {
        color: Theme.scrim
    }
    background: Rectangle {
        color: Theme.surface
        border.color: Theme.outline
        radius: Theme.radius
    }
    header: null
    footer: null

    contentItem: FocusScope {
        implicitHeight: children[0].implicitHeight
        focus: true
        Accessible.role: Accessible.AlertMessage
        Accessible.name: root.question

        Column {
            width: parent.width
            spacing: 20

            Text {
                objectName: "storeQuestion"
                width: parent.width
                text: root.question
                textFormat: Text.PlainText
                wrapMode: Text.Wrap
                color: Theme.text
                font.pixelSize: Theme.bodyText
            }
            GridLayout {
                width: parent.width
                columns: width < 260 * Theme.textScale ? 1 : 2
                columnSpacing: Theme.gap
                rowSpacing: Theme.gap

                ActionButton {
                    objectName: "cancelButton"
                    Layout.fillWidth: true
                    Layout.preferredWidth: 1
                    text: qsTr("Cancel")
                    focus: true
                    onActiveFocusChanged: {
                        if (activeFocus && root.byKeyboard)
                            focusReason = Qt.TabFocusReason;
                    }
                    onClicked: root.close()
                }
                ActionButton {
                    objectName: "replaceButton"
                    Layout.fillWidth: true
                    Layout.preferredWidth: 1
                    prominent: true
                    tone: Theme.bad
                    text: qsTr("Replace")
                    onClicked: {
                        root.button.press();
                        root.close();
                    }
                }
            }
        }
        Connections {
            target: root.screen
            function onHandsOff() {
                root.close();
            }
        }
    }
}

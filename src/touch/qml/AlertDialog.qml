import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Templates as T
import Lumbra.Touch

/// The alert with its one button. It is modal.
Dialog {
    id: root

    required property AppAdapter app
    readonly property AlertAdapter alert: app.alert

    anchors.centerIn: T.Overlay.overlay
    width: Math.min(420, T.Overlay.overlay ? T.Overlay.overlay.width - 2 * Theme.gap : 420)
    padding: 20
    modal: true
    closePolicy: Popup.NoAutoClose
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
        Accessible.name: Speech.format(qsTr("%1, %2"), [root.alert.title, root.alert.message])

        Column {
            width: parent.width
            spacing: Theme.gap

            Text {
                width: parent.width
                text: root.alert.title
                textFormat: Text.PlainText
                wrapMode: Text.Wrap
                color: Theme.text
                font.pixelSize: Theme.titleText
                font.bold: true
            }
            Text {
                objectName: "alertMessage"
                width: parent.width
                text: root.alert.message
                textFormat: Text.PlainText
                wrapMode: Text.Wrap
                color: Theme.text
                font.pixelSize: Theme.bodyText
            }
            Text {
                objectName: "alertEndpoint"
                width: parent.width
                visible: root.app.link.redirected
                text: Speech.format(qsTr("Connections go to %1."), [root.app.link.address])
                textFormat: Text.PlainText
                wrapMode: Text.Wrap
                color: Theme.dimText
                font.pixelSize: Theme.bodyText
            }
            ActionButton {
                objectName: "retryButton"
                width: parent.width
                text: qsTr("Try again")
                onClicked: {
                    root.alert.dismiss();
                    root.app.link.reconnect();
                }
            }
            ActionButton {
                objectName: "changeAddressButton"
                width: parent.width
                text: qsTr("Change address")
                onClicked: {
                    root.alert.dismiss();
                    root.app.settings.open();
                }
            }
            ActionButton {
                objectName: "alertButton"
                width: parent.width
                prominent: true
                text: root.alert.button
                focus: true
                Keys.onEscapePressed: clicked()
                onClicked: root.alert.dismiss()
            }
        }
    }
}

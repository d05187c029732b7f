import QtQuick
import QtQuick.Layouts
import Lumbra.Touch

/// The alert, on a sheet over the foot of the page. It holds nothing back: all that is in sight can be used.
Rectangle {
    id: root

    required property AppAdapter app
    readonly property AlertAdapter alert: app.alert

    implicitHeight: column.implicitHeight + 2 * Theme.gap
    color: Theme.raised
    border.color: Theme.outline
    border.width: 1
    radius: Theme.radius
    Accessible.role: Accessible.AlertMessage
    Accessible.name: Speech.format(qsTr("%1, %2"), [alert.title, alert.message])

    // What is under the sheet is not touched through it.
    MouseArea {
        anchors.fill: parent
    }
    Column {
        id: column

        x: Theme.gap + 4
        y: Theme.gap
        width: parent.width - 2 * x
        spacing: Theme.smallGap

        Text {
            objectName: "alertMessage"
            width: parent.width
            text: root.alert.message
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            color: Theme.text
            font.pixelSize: Theme.bodyText
            font.bold: true
            Accessible.ignored: true
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
        Item {
            width: 1
            height: 2
        }
        GridLayout {
            id: buttons

            readonly property real room: retry.implicitWidth + change.implicitWidth + close.implicitWidth + 2 * columnSpacing

            width: parent.width
            columns: width >= room ? 3 : width >= change.implicitWidth + close.implicitWidth + columnSpacing ? 2 : 1
            columnSpacing: Theme.gap
            rowSpacing: Theme.smallGap

            ActionButton {
                id: retry

                objectName: "retryButton"
                Layout.fillWidth: true
                Layout.columnSpan: buttons.columns === 2 ? 2 : 1
                prominent: true
                text: qsTr("Try again")
                onClicked: {
                    root.alert.dismiss();
                    root.app.link.reconnect();
                }
            }
            ActionButton {
                id: change

                objectName: "changeAddressButton"
                Layout.fillWidth: true
                text: qsTr("Change address")
                onClicked: {
                    root.alert.dismiss();
                    root.app.settings.open();
                }
            }
            ActionButton {
                id: close

                objectName: "alertButton"
                Layout.fillWidth: true
                text: root.alert.button
                onClicked: root.alert.dismiss()
            }
        }
    }
}

pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Lumbra.Touch

/// The first page of a fresh installation: where is the unit?
T.ApplicationWindow {
    id: window

    required property FirstRun first

    width: 1000
    height: 700
    minimumWidth: 320
    minimumHeight: 360
    title: qsTr("Lumbra Remote")
    color: Theme.background

    ScreenPage {
        anchors.fill: parent
        maximumWidth: 480

        ColumnLayout {
            width: parent.width
            spacing: Theme.gap

            Text {
                objectName: "question"
                Layout.fillWidth: true
                Layout.topMargin: Math.max(0, (window.height - 460) / 3)
                text: qsTr("Where is your unit?")
                textFormat: Text.PlainText
                wrapMode: Text.Wrap
                color: Theme.text
                font.pixelSize: Theme.itemText
                font.bold: true
                Accessible.role: Accessible.Heading
                Accessible.name: text
            }
            Text {
                Layout.fillWidth: true
                text: qsTr("Type its address, as your installer or your router shows it.")
                textFormat: Text.PlainText
                wrapMode: Text.Wrap
                color: Theme.dimText
                font.pixelSize: Theme.bodyText
            }
            AddressField {
                id: address

                Layout.fillWidth: true
                focus: true
                name: qsTr("Address")
                onEdited: hint = ""
                onAccepted: connectButton.clicked()
            }
            SettingCaption {
                text: qsTr("Unit number")
            }
            UnitChoice {
                id: unit

                Layout.fillWidth: true
                name: qsTr("Unit number")
                minimum: window.first.minimumUnit
                maximum: window.first.maximumUnit
                selected: 0
                onChosen: choice => selected = choice
            }
            ActionButton {
                id: connectButton

                objectName: "connectButton"
                Layout.fillWidth: true
                Layout.topMargin: Theme.gap
                prominent: true
                enabled: address.text !== ""
                text: qsTr("Connect")
                onClicked: {
                    if (enabled)
                        address.hint = window.first.connectTo(address.text, unit.selected + unit.minimum);
                }
            }
            ActionButton {
                objectName: "demoButton"
                Layout.fillWidth: true
                text: qsTr("Try the demo")
                onClicked: window.first.tryDemo()
            }
        }
    }
}

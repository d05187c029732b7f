pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Layouts
import Lumbra.Touch

/// The six settings. What is changed is stored, and read by the application, with "Done".
FocusScope {
    id: root

    required property SettingsAdapter settings

    focus: true
    Keys.onEscapePressed: settings.cancel()
    Keys.onBackPressed: settings.cancel()
    Accessible.role: Accessible.Pane
    Accessible.name: qsTr("Settings")

    Rectangle {
        id: header

        width: parent.width
        height: Math.max(Theme.row, title.implicitHeight) + 16
        color: Theme.surface

        FittedText {
            id: title

            anchors.left: parent.left
            anchors.leftMargin: Theme.gap
            anchors.right: cancel.left
            anchors.rightMargin: Theme.smallGap
            anchors.verticalCenter: parent.verticalCenter
            text: qsTr("Settings")
            font.pixelSize: Theme.titleText
            font.bold: true
            fontSizeMode: Text.HorizontalFit
            minimumPixelSize: Theme.tinyText
            Accessible.role: Accessible.Heading
            Accessible.name: text
        }
        ActionButton {
            id: cancel

            objectName: "cancelSettingsButton"
            anchors.right: done.left
            anchors.rightMargin: Theme.smallGap
            anchors.verticalCenter: parent.verticalCenter
            text: qsTr("Cancel")
            onClicked: root.settings.cancel()
        }
        ActionButton {
            id: done

            objectName: "doneButton"
            anchors.right: parent.right
            anchors.rightMargin: Theme.gap
            anchors.verticalCenter: parent.verticalCenter
            prominent: true
            text: qsTr("Done")
            onClicked: root.settings.accept()
        }
    }
    ScreenPage {
        id: page

        anchors.top: header.bottom
        anchors.bottom: parent.bottom
        width: parent.width
        clip: true
        maximumWidth: 560
        // The licence comes into sight when it is asked for.
        onContentHeightChanged: {
            if (licence.visible)
                contentY = Math.max(0, Math.min(contentHeight - height, licence.y));
        }

        ColumnLayout {
            width: parent.width
            spacing: Theme.gap

            SettingCaption {
                text: root.settings.caption("ip_address_preference")
            }
            AddressField {
                Layout.fillWidth: true
                focus: true
                name: root.settings.caption("ip_address_preference")
                text: root.settings.address
                hint: root.settings.addressHint
                onEdited: text => root.settings.address = text
                onAccepted: root.settings.accept()
            }
            SettingCaption {
                text: root.settings.caption("unit_number_preference")
            }
            UnitChoice {
                Layout.fillWidth: true
                name: root.settings.caption("unit_number_preference")
                minimum: root.settings.minimumUnit
                maximum: root.settings.maximumUnit
                selected: root.settings.unit - minimum
                onChosen: choice => root.settings.unit = choice + minimum
            }
            SettingSwitch {
                objectName: "pollingSwitch"
                Layout.fillWidth: true
                text: root.settings.caption("polling_preference")
                explanation: root.settings.explanation("polling_preference")
                on: root.settings.polling
                onFlipped: on => root.settings.polling = on
            }
            SettingSwitch {
                objectName: "serialSwitch"
                Layout.fillWidth: true
                text: root.settings.caption("serial_port_preference")
                explanation: root.settings.explanation("serial_port_preference")
                on: root.settings.serialPort
                onFlipped: on => root.settings.serialPort = on
            }
            SettingCaption {
                text: root.settings.caption("start_tab_preference")
            }
            ChoiceRow {
                objectName: "startTabChoice"
                Layout.fillWidth: true
                name: root.settings.caption("start_tab_preference")
                choices: root.settings.tabs
                selected: root.settings.startTab
                onChosen: choice => root.settings.startTab = choice
            }
            SwitchBase {
                objectName: "advancedSwitch"
                Layout.fillWidth: true
                text: root.settings.caption("advanced_mode_preference")
                on: root.settings.advancedMode
                onFlipped: on => root.settings.advancedMode = on
            }
            RowLayout {
                spacing: Theme.gap

                FittedText {
                    Layout.fillWidth: true
                    text: Speech.format(qsTr("Lumbra Remote %1"), [root.settings.version])
                    color: Theme.dimText
                    font.pixelSize: Theme.smallText
                }
                ActionButton {
                    objectName: "licenceButton"
                    text: qsTr("Licence")
                    onClicked: licence.text = licence.text === "" ? root.settings.licence() : ""
                }
            }
            Text {
                id: licence

                objectName: "licence"
                Layout.fillWidth: true
                visible: text !== ""
                textFormat: Text.PlainText
                wrapMode: Text.Wrap
                color: Theme.dimText
                font.pixelSize: Theme.smallText
            }
        }
    }
}

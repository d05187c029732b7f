pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Layouts
import Lumbra.Touch

/// The six settings. The application reads them when the screen is closed.
FocusScope {
    id: root

    required property SettingsAdapter settings

    focus: true
    Keys.onEscapePressed: settings.close()
    Keys.onBackPressed: settings.close()
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
            anchors.right: done.left
            anchors.verticalCenter: parent.verticalCenter
            text: qsTr("Settings")
            font.pixelSize: Theme.titleText
            font.bold: true
            Accessible.role: Accessible.Heading
            Accessible.name: text
        }
        ActionButton {
            id: done

            objectName: "doneButton"
            anchors.right: parent.right
            anchors.rightMargin: Theme.gap
            anchors.verticalCenter: parent.verticalCenter
            prominent: true
            text: qsTr("Done")
            onClicked: root.settings.close()
        }
    }
    ScreenPage {
        anchors.top: header.bottom
        anchors.bottom: parent.bottom
        width: parent.width
        clip: true
        maximumWidth: 560

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
                onAccepted: root.settings.close()
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
            SwitchBase {
                objectName: "pollingSwitch"
                Layout.fillWidth: true
                text: root.settings.caption("polling_preference")
                on: root.settings.polling
                onFlipped: on => root.settings.polling = on
            }
            SwitchBase {
                objectName: "serialSwitch"
                Layout.fillWidth: true
                text: root.settings.caption("serial_port_preference")
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
        }
    }
}

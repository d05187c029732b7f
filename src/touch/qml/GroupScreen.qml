import QtQuick
import QtQuick.Layouts
import Lumbra.Touch

/// One of the groups of zones.
ScreenPage {
    id: page

    required property ScreenAdapter screen
    readonly property string where: screen.picker("groupPicker").selectedText

    GridLayout {
        width: parent.width
        columns: page.wide ? 2 : 1
        columnSpacing: Theme.gap
        rowSpacing: Theme.gap

        RowLayout {
            Layout.fillWidth: true
            Layout.alignment: Qt.AlignTop
            Layout.preferredWidth: 1
            spacing: Theme.gap

            WheelPicker {
                objectName: "groupPicker"
                Layout.fillWidth: true
                Layout.preferredWidth: 1
                picker: page.screen.picker("groupPicker")
                visibleRows: page.wheelRows
            }
            WheelPicker {
                objectName: "sourcePicker"
                Layout.fillWidth: true
                Layout.preferredWidth: 1
                picker: page.screen.picker("sourcePicker")
                where: page.where
                visibleRows: page.wheelRows
            }
        }
        ColumnLayout {
            Layout.fillWidth: true
            Layout.alignment: Qt.AlignTop
            Layout.preferredWidth: 1
            spacing: Theme.gap

            VolumeCard {
                Layout.fillWidth: true
                screen: page.screen
                where: page.where
            }
            GridLayout {
                Layout.fillWidth: true
                columns: Theme.textScale > 1.3 && !page.wide ? 1 : 2
                columnSpacing: Theme.gap
                rowSpacing: Theme.gap

                SwitchRow {
                    objectName: "muteSwitch"
                    Layout.fillWidth: true
                    Layout.preferredWidth: 1
                    adapter: page.screen.onOff("muteSwitch")
                    where: page.where
                }
                SwitchRow {
                    objectName: "powerSwitch"
                    Layout.fillWidth: true
                    Layout.preferredWidth: 1
                    adapter: page.screen.onOff("powerSwitch")
                    where: page.where
                }
            }
        }
    }
}

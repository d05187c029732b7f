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

        PickerPair {
            Layout.fillWidth: true
            Layout.alignment: Qt.AlignTop
            Layout.preferredWidth: 1
            screen: page.screen
            items: "groupPicker"
            visibleRows: page.wheelRows
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
            SwitchPair {
                Layout.fillWidth: true
                screen: page.screen
                where: page.where
                first: "muteSwitch"
                second: "powerSwitch"
            }
        }
    }
}

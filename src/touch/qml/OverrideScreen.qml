pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Layouts
import Lumbra.Touch

/// The ten overrides.
ScreenPage {
    id: page

    required property ScreenAdapter screen

    GridLayout {
        width: parent.width
        flow: GridLayout.TopToBottom
        rows: page.wide ? 5 : 10
        columnSpacing: Theme.gap
        rowSpacing: Theme.smallGap

        Repeater {
            model: 10

            SwitchRow {
                required property int index

                objectName: "ovrSwitch" + (index + 1)
                Layout.fillWidth: true
                Layout.preferredWidth: 1
                adapter: page.screen.onOff("ovrSwitch" + (index + 1))
            }
        }
    }
}

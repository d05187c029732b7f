import QtQuick
import QtQuick.Layouts
import Lumbra.Touch

/// One of the unit's zones.
ScreenPage {
    id: page

    required property ScreenAdapter screen
    readonly property string where: screen.picker("zonePicker").selectedText

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
            items: "zonePicker"
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
                second: "loudnessSwitch"
            }
            GridLayout {
                Layout.fillWidth: true
                columns: (page.wide && page.height > 440) || Theme.textScale > 1.3 ? 1 : 2
                columnSpacing: Theme.gap
                rowSpacing: Theme.gap

                LevelCard {
                    objectName: "bass"
                    Layout.fillWidth: true
                    Layout.preferredWidth: 1
                    slider: page.screen.slider("bassSlider")
                    label: page.screen.label("bassLabel")
                    where: page.where
                }
                LevelCard {
                    objectName: "treble"
                    Layout.fillWidth: true
                    Layout.preferredWidth: 1
                    slider: page.screen.slider("trebleSlider")
                    label: page.screen.label("trebleLabel")
                    where: page.where
                }
            }
        }
    }
}

import QtQuick
import QtQuick.Layouts
import Lumbra.Touch

/// One of the unit's zones.
ItemPage {
    id: page

    items: "zonePicker"

    SwitchPair {
        Layout.fillWidth: true
        Layout.row: 3
        screen: page.screen
        where: page.where
        first: "muteSwitch"
        second: "loudnessSwitch"
    }
    GridLayout {
        Layout.fillWidth: true
        Layout.row: page.wide ? 4 : 1
        columns: Theme.textScale > 1.3 ? 1 : 2
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

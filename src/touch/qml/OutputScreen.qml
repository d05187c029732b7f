pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Layouts
import Lumbra.Touch

/// One of the unit's outputs with its equaliser.
ScreenPage {
    id: page

    required property ScreenAdapter screen
    current: screen.current
    readonly property string where: screen.picker("outputPicker").selectedText
    /// The band that is shown if the bands are paged, and whose curve is thin in the plot.
    property int band: 0
    readonly property bool allBands: width >= 980

    maximumWidth: 1400

    ColumnLayout {
        width: parent.width
        spacing: Theme.gap

        GridLayout {
            Layout.fillWidth: true
            columns: page.wide ? 2 : 1
            columnSpacing: Theme.gap
            rowSpacing: Theme.gap

            PickerPair {
                Layout.fillWidth: true
                Layout.alignment: Qt.AlignTop
                Layout.preferredWidth: 1
                screen: page.screen
                items: "outputPicker"
            }
            ColumnLayout {
                Layout.fillWidth: true
                Layout.alignment: Qt.AlignTop
                Layout.preferredWidth: 1
                spacing: Theme.smallGap

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
        EqualiserView {
            Layout.fillWidth: true
            screen: page.screen
            where: page.where
            edited: page.band
            onChosen: band => page.band = band
        }
        ChoiceRow {
            objectName: "bandChoice"
            Layout.fillWidth: true
            visible: !page.allBands
            name: qsTr("Band")
            choices: ["1", "2", "3", "4", "5", "6", "7"]
            columns: width < 7 * Theme.target ? 4 : 7
            selected: page.band
            onChosen: choice => page.band = choice
        }
        BandEditor {
            objectName: "band"
            Layout.fillWidth: true
            visible: !page.allBands
            screen: page.screen
            where: page.where
            band: page.band
            edited: true
        }
        RowLayout {
            visible: page.allBands
            spacing: Theme.smallGap

            Repeater {
                model: page.allBands ? 7 : 0

                BandEditor {
                    required property int index

                    objectName: "band" + (index + 1)
                    Layout.fillWidth: true
                    Layout.preferredWidth: 1
                    screen: page.screen
                    where: page.where
                    band: index
                    edited: index === page.band
                    onChosen: page.band = index
                }
            }
        }
    }
}

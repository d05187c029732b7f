import QtQuick
import QtQuick.Layouts
import Lumbra.Touch

/// The page of a screen of items: the pickers, and beside or below them the selected item's volume and its
/// other controls.
ScreenPage {
    id: page

    required property ScreenAdapter screen
    /// The name of the picker of the items.
    required property string items
    readonly property string where: screen.picker(items).selectedText
    /// The other controls, each with its row: the volume has row 2. What has row 1 is above it, as on a narrow page
    /// everything that can wait, so that volume and mute are in reach of the thumb.
    default property alias controls: column.data


    GridLayout {
        width: parent.width
        columns: page.wide ? 2 : 1
        columnSpacing: 2 * Theme.gap
        rowSpacing: Theme.gap

        PickerPair {
            id: pickers

            Layout.fillWidth: true
            Layout.alignment: Qt.AlignTop
            Layout.preferredWidth: listed ? (stacked ? 4 : 7) : 1
            // What the other controls leave of the page, but not less than three rows.
            Layout.preferredHeight: Math.max(3 * Theme.row + 24 * Theme.textScale, page.height - 2 * Theme.gap - (page.wide ? 0 : column.implicitHeight + Theme.gap))
            screen: page.screen
            items: page.items
            stacked: page.width < 1000
        }
        GridLayout {
            id: column

            Layout.fillWidth: true
            Layout.alignment: Qt.AlignTop
            Layout.preferredWidth: pickers.listed ? 5 : 1
            columns: 1
            rowSpacing: Theme.gap

            FittedText {
                objectName: "itemName"
                Layout.fillWidth: true
                visible: pickers.listed
                text: page.where
                color: Theme.value
                font.pixelSize: Theme.itemText
                font.bold: true
                Accessible.role: Accessible.Heading
                Accessible.name: text
            }
            VolumeCard {
                Layout.fillWidth: true
                Layout.row: 2
                screen: page.screen
                where: page.where
            }
        }
    }
}

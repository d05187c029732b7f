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
    default property alias controls: column.data

    current: screen.current

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
            Layout.preferredHeight: listed ? page.height - 2 * Theme.gap : -1
            screen: page.screen
            items: page.items
            visibleRows: page.wheelRows
            stacked: page.width < 1000
        }
        ColumnLayout {
            id: column

            Layout.fillWidth: true
            Layout.alignment: Qt.AlignTop
            Layout.preferredWidth: pickers.listed ? 5 : 1
            spacing: Theme.gap

            FittedText {
                objectName: "itemName"
                Layout.fillWidth: true
                visible: pickers.listed
                text: page.where
                font.pixelSize: Theme.itemText
                font.bold: true
                Accessible.role: Accessible.Heading
                Accessible.name: text
            }
            VolumeCard {
                Layout.fillWidth: true
                screen: page.screen
                where: page.where
            }
        }
    }
}

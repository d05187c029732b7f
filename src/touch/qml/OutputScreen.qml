pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Layouts
import Lumbra.Touch

/// One of the unit's outputs with its equaliser: on one page, or on two where the window is small.
ScreenPage {
    id: page

    required property ScreenAdapter screen
    readonly property string where: screen.picker("outputPicker").selectedText
    /// The band that is shown if the bands are paged, and whose curve is thin in the plot.
    property int band: 0

    readonly property bool twoPages: Math.min(width, height) < 600 * Theme.textScale
    /// Of two pages, the one on show: 0 is the level, 1 the equaliser.
    property int part: 0
    readonly property bool levelShown: !twoPages || part === 0
    readonly property bool equaliserShown: !twoPages || part === 1
    /// The plot is beside the level.
    readonly property bool besideLevel: !twoPages && width >= 900 * Theme.textScale
    /// The plot is beside the bands.
    readonly property bool besideBands: twoPages && width >= 600 * Theme.textScale

    /// The width that the longest name of a type needs, however small it is shown.
    readonly property real typeWidth: {
        typeMetrics.font; // a function's result does not tell when it changes
        let widest = 0;
        for (const name of screen.segmented("filterType1").segments)
            widest = Math.max(widest, typeMetrics.advanceWidth(name));
        return widest + 2;
    }
    /// All bands are side by side if the names of their types have their room.
    readonly property bool allBands: !twoPages && width >= 1150 * Theme.textScale && height >= 780 * Theme.textScale && (all.width - 6 * Theme.smallGap) / 7 - 16 >= 2 * typeWidth

    /// A part that goes out of sight must not keep the keyboard focus.
    function releaseFocus(part: Item) {
        let item = page.Window.window ? page.Window.window.activeFocusItem : null;
        while (item && item !== part)
            item = item.parent;
        if (item)
            partChoice.nextItemInFocusChain().forceActiveFocus(Qt.OtherFocusReason);
    }

    maximumWidth: 1720

    FontMetrics {
        id: typeMetrics

        font.pixelSize: Theme.tinyText
        font.bold: true
    }
    Item {
        id: all

        readonly property real start: page.twoPages ? partChoice.height + Theme.gap : 0
        /// The height of the page below `start`.
        readonly property real room: page.height - 2 * Theme.gap - start

        width: parent.width
        height: page.equaliserShown ? Math.max(plot.y + plot.height, bands.y + bands.height) : level.y + level.height

        ChoiceRow {
            id: partChoice

            objectName: "partChoice"
            width: parent.width
            height: implicitHeight
            visible: page.twoPages
            name: qsTr("Part of the screen")
            choices: [qsTr("Level"), qsTr("Equaliser")]
            selected: page.part
            onChosen: choice => page.part = choice
        }
        Item {
            id: level

            readonly property bool stacked: page.besideLevel || !page.wide
            /// The height for the pickers.
            readonly property real pickerRoom: (page.twoPages ? all.room : page.besideLevel ? all.room - bands.height - Theme.gap : 0) - (stacked ? volume.height + Theme.gap : 0)

            y: all.start
            width: page.besideLevel ? Math.max(380 * Theme.textScale, parent.width * 0.3) : parent.width
            height: volume.y + (stacked ? volume.height : Math.max(wheels.height, volume.height))
            visible: page.levelShown
            onVisibleChanged: {
                if (!visible && page.visible)
                    page.releaseFocus(level);
            }

            PickerPair {
                id: wheels

                width: level.stacked ? parent.width : (parent.width - Theme.gap) / 2
                height: listed ? Math.max(120 * Theme.textScale, level.pickerRoom) : implicitHeight
                screen: page.screen
                items: "outputPicker"
                stacked: level.stacked && level.pickerRoom >= 420 * Theme.textScale
                // An odd number of rows of a wheel, so that one is in the middle.
                visibleRows: Math.max(3, Math.min(9, 2 * Math.floor((level.pickerRoom / Theme.row - 1.5) / 2) + 1))
            }
            ColumnLayout {
                id: volume

                x: level.stacked ? 0 : wheels.width + Theme.gap
                y: level.stacked ? wheels.height + Theme.gap : 0
                width: wheels.width
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
            id: plot

            x: page.besideLevel ? level.width + Theme.gap : 0
            y: all.start + (page.twoPages || page.besideLevel ? 0 : level.height + Theme.gap)
            width: parent.width - x - (page.besideBands ? bands.width + Theme.gap : 0)
            // What is left of the page; if that is too little, the page scrolls.
            height: Math.max(page.besideLevel ? level.height : page.besideBands ? bands.height : implicitHeight, all.start + all.room - y - (page.besideBands ? 0 : bands.height + Theme.gap))
            visible: page.equaliserShown
            onVisibleChanged: {
                if (!visible && page.visible)
                    page.releaseFocus(plot);
            }
            screen: page.screen
            where: page.where
            edited: page.band
            onChosen: band => page.band = band
        }
        ColumnLayout {
            id: bands

            x: page.besideBands ? parent.width - width : 0
            y: page.besideBands ? all.start : plot.y + plot.height + Theme.gap
            width: page.besideBands ? Math.max(350, 300 * Theme.textScale) : parent.width
            visible: page.equaliserShown
            onVisibleChanged: {
                if (!visible && page.visible)
                    page.releaseFocus(bands);
            }
            spacing: Theme.smallGap

            BandChoice {
                objectName: "bandChoice"
                Layout.fillWidth: true
                visible: !page.allBands
                screen: page.screen
                selected: page.band
                onChosen: band => page.band = band
            }
            BandEditor {
                objectName: "band"
                Layout.fillWidth: true
                visible: !page.allBands
                screen: page.screen
                where: page.where
                typeWidth: page.typeWidth
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
                        typeWidth: page.typeWidth
                        titled: true
                        band: index
                        edited: index === page.band
                        onChosen: page.band = index
                    }
                }
            }
        }
    }
}

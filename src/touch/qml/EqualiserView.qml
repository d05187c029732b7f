pragma ComponentBehavior: Bound
import QtQuick
import Lumbra.Touch

/// The response of an output's equaliser, with a handle for each band.
Card {
    id: root

    required property ScreenAdapter screen
    required property int edited
    /// The name of the output.
    required property string where

    signal chosen(band: int)

    implicitHeight: 160 * Theme.textScale
    implicitWidth: 320
    Accessible.role: Accessible.Graphic
    Accessible.name: qsTr("Equaliser response, approximate")

    FittedText {
        id: title

        anchors.left: response.left
        anchors.right: note.left
        anchors.rightMargin: Theme.smallGap
        y: Theme.smallGap
        text: root.where
        font.pixelSize: root.Window.width < Theme.largeWidth ? Theme.smallText : Theme.itemText
        font.bold: true
        Accessible.ignored: true
    }
    FittedText {
        id: note

        anchors.right: response.right
        anchors.baseline: title.baseline
        width: Math.min(implicitWidth, response.width / 2)
        text: qsTr("approximate")
        color: Theme.dimText
        font.pixelSize: Theme.smallText
        Accessible.ignored: true
    }
    EqPlot {
        id: response

        objectName: "plot"
        anchors.fill: parent
        anchors.margins: Theme.smallGap
        anchors.topMargin: title.y + title.height + 2
        screen: root.screen
        edited: root.edited
        handleRadius: 14
        sumColor: Theme.value
        editedColor: Theme.live
        gridColor: Theme.raised
        textColor: Theme.dimText
        backColor: root.color
        textSize: Math.round(Theme.smallText * 0.85)
    }
    Item {
        id: grid

        x: response.x + response.grid.x
        y: response.y + response.grid.y
        width: response.grid.width
        height: response.grid.height

        Repeater {
            id: all

            model: 7

            BandHandle {
                id: handle

                required property int index

                objectName: "handle" + (index + 1)
                band: index
                screen: root.screen
                plot: response
                where: root.where
                editedBand: root.edited
                handles: all
                onChosen: root.chosen(index)
                onMovingChanged: {
                    if (moving)
                        bubble.handle = handle;
                    else if (bubble.handle === handle)
                        bubble.handle = null;
                }
            }
        }
        BandBubble {
            id: bubble

            objectName: "bubble"
            handleRadius: response.handleRadius
            room: Qt.rect(Theme.smallGap - grid.x, Theme.smallGap - grid.y, root.width - 2 * Theme.smallGap, root.height - 2 * Theme.smallGap)
        }
    }
}

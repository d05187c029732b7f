pragma ComponentBehavior: Bound
import QtQuick
import Lumbra.Touch

/// The response of an output's equaliser, with a handle for each band that is not bypassed.
Card {
    id: root

    required property ScreenAdapter screen
    required property int edited
    /// The name of the output, for screen readers.
    required property string where

    signal chosen(band: int)

    implicitHeight: 190
    implicitWidth: 320
    Accessible.role: Accessible.Graphic
    Accessible.name: qsTr("Equaliser response, approximate")

    EqPlot {
        id: response

        objectName: "plot"
        anchors.fill: parent
        anchors.margins: 8
        screen: root.screen
        edited: root.edited
        sumColor: Theme.text
        editedColor: Theme.accent
        gridColor: Theme.raised
        textColor: Theme.dimText
        textSize: Math.round(Theme.smallText * 0.85)
    }
    FittedText {
        anchors.top: response.top
        anchors.right: response.right
        width: Math.min(implicitWidth, response.width / 2)
        text: qsTr("approximate")
        color: Theme.dimText
        font.pixelSize: Theme.smallText
        Accessible.ignored: true
    }
    Item {
        anchors.fill: response

        Repeater {
            id: all

            model: 7

            BandHandle {
                required property int index

                objectName: "handle" + (index + 1)
                band: index
                screen: root.screen
                plot: response
                where: root.where
                editedBand: root.edited
                handles: all
                onChosen: root.chosen(index)
            }
        }
    }
}

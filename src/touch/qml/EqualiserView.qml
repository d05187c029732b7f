pragma ComponentBehavior: Bound
import QtQuick
import Lumbra.Touch

/// The response of an output's equaliser, with a handle for each band that is not bypassed.
Card {
    id: root

    required property ScreenAdapter screen
    required property int edited

    signal chosen(band: int)

    implicitHeight: 220
    implicitWidth: 320
    Accessible.role: Accessible.Graphic
    Accessible.name: qsTr("Equaliser response, approximate")

    EqPlot {
        id: plot

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
        anchors.top: plot.top
        anchors.right: plot.right
        width: Math.min(implicitWidth, plot.width / 2)
        text: qsTr("approximate")
        color: Theme.dimText
        font.pixelSize: Theme.smallText
        Accessible.ignored: true
    }
    Item {
        anchors.fill: plot

        Repeater {
            model: 7

            BandHandle {
                required property int index

                objectName: "handle" + (index + 1)
                band: index
                screen: root.screen
                plot: plot
                edited: index === root.edited
                onChosen: root.chosen(index)
            }
        }
    }
}

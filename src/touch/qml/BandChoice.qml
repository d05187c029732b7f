pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Layouts
import Lumbra.Touch

/// The bands to choose the edited one from, each with the shape of its type and its frequency.
Item {
    id: root

    required property ScreenAdapter screen
    required property int selected

    signal chosen(band: int)

    implicitHeight: grid.implicitHeight
    implicitWidth: 7 * Theme.target
    Accessible.role: Accessible.Grouping
    Accessible.name: qsTr("Band")

    GridLayout {
        id: grid

        width: parent.width
        columns: root.width < 7 * Theme.target ? 4 : 7
        columnSpacing: 0
        rowSpacing: 0

        Repeater {
            model: 7

            Segment {
                id: band

                required property int index
                readonly property SegmentedAdapter type: root.screen.segmented("filterType" + (index + 1))
                readonly property SliderAdapter frequency: root.screen.slider("filterFreq" + (index + 1))

                objectName: "segment" + index
                Layout.fillWidth: true
                Layout.preferredWidth: 1
                implicitHeight: Math.max(Theme.row, Math.ceil(caption.implicitHeight + words.implicitHeight) + 9)
                outlined: true
                name: qsTr("Band")
                text: (index + 1).toString()
                selected: index === root.selected
                bottomPadding: words.implicitHeight + 2
                topPadding: 5
                rightPadding: type.known ? 22 : 0
                onClicked: root.chosen(index)

                Image {
                    x: band.width / 2
                    y: band.caption.y + (band.caption.height - height) / 2
                    visible: band.type.known
                    source: "../icons/filter" + band.type.selected + ".svg"
                    sourceSize.width: 20
                    sourceSize.height: 20
                    asynchronous: true
                    opacity: band.frequency.enabled ? 1 : 0.6
                }
                FittedText {
                    id: words

                    x: 3
                    width: parent.width - 6
                    anchors.bottom: parent.bottom
                    anchors.bottomMargin: 5
                    horizontalAlignment: Text.AlignHCenter
                    text: band.frequency.known ? BandText.brief(band.frequency.value) : "\u2013"
                    color: band.frequency.enabled ? Theme.value : Theme.staleText
                    font.pixelSize: Theme.tinyText
                    fontSizeMode: Text.HorizontalFit
                    minimumPixelSize: 8
                    Accessible.ignored: true
                }
            }
        }
    }
}

import QtQuick
import Lumbra.Touch

/// One band of an output's equaliser: its type, frequency and gain.
Card {
    id: root

    required property ScreenAdapter screen
    /// 0-based.
    required property int band
    /// The name of the output, for screen readers.
    required property string where
    property bool edited: false

    readonly property SegmentedAdapter type: screen.segmented("filterType" + (band + 1))
    readonly property SliderAdapter frequency: screen.slider("filterFreq" + (band + 1))
    readonly property SliderAdapter gain: screen.slider("filterGain" + (band + 1))

    signal chosen

    implicitHeight: column.implicitHeight + 16
    implicitWidth: 140
    border.color: edited ? Theme.accent : Theme.surface
    border.width: 1

    Column {
        id: column

        x: 8
        y: 8
        width: parent.width - 16
        spacing: 4

        FittedText {
            width: parent.width
            text: root.type.caption
            color: Theme.dimText
            font.pixelSize: Theme.smallText
            Accessible.ignored: true
        }
        ChoiceRow {
            objectName: "type"
            width: parent.width
            name: root.type.spokenName(root.where)
            choices: root.type.segments
            selected: root.type.selected
            textSize: Theme.smallText
            columns: width >= 460 * Theme.textScale ? 6 : width >= 240 * Theme.textScale ? 3 : width >= 130 * Theme.textScale ? 2 : 1
            enabled: root.type.enabled
            onChosen: choice => {
                root.chosen();
                root.type.tap(choice);
            }
        }
        BandLine {
            width: parent.width
            onChosen: root.chosen()
            objectName: "frequency"
            where: root.where
            slider: root.frequency
            label: root.screen.label("freqLabel" + (root.band + 1))
            // A twelfth and a third of an octave on the slider's scale.
            stepSize: 25
            pageSize: 100
        }
        BandLine {
            width: parent.width
            onChosen: root.chosen()
            objectName: "gain"
            where: root.where
            slider: root.gain
            label: root.screen.label("gainLabel" + (root.band + 1))
            stepSize: 1
            pageSize: 5
        }
    }
}

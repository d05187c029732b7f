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
    /// The width that the longest name of a type needs.
    required property real typeWidth
    /// Whether it shows the caption of its type, and with it the number of its band.
    property bool titled: false
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
            visible: root.titled
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
            selected: root.type.known ? root.type.selected : -1
            former: root.type.known ? root.type.former : -1
            // A narrow segment keeps a margin around its name.
            textSize: width < 2.6 * root.typeWidth ? Math.round(Theme.smallText * 0.92) : Theme.smallText
            // Of two arrangements that fit, the one with more rows if names would be small in the other.
            columns: width >= 7.2 * root.typeWidth ? 6 : width >= 3.6 * root.typeWidth ? 3 : width >= 2 * root.typeWidth ? 2 : 1
            enabled: root.type.enabled
            onChosen: choice => {
                root.chosen();
                root.type.tap(choice);
            }
        }
        Grid {
            id: lines

            readonly property real lineWidth: (width - (columns - 1) * columnSpacing) / columns

            width: parent.width
            columns: width >= 300 * Theme.textScale ? 2 : 1
            rowSpacing: 4
            columnSpacing: Theme.gap

            BandLine {
                width: lines.lineWidth
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
                width: lines.lineWidth
                onChosen: root.chosen()
                objectName: "gain"
                where: root.where
                slider: root.gain
                fillFrom: slider.zeroPosition
                isGain: true
                // High-pass and low-pass have a frequency only.
                present: root.gain.enabled || !root.frequency.enabled
                label: root.screen.label("gainLabel" + (root.band + 1))
                stepSize: 1
                pageSize: 5
            }
        }
    }
}

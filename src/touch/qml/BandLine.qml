import QtQuick
import Lumbra.Touch

/// A slider of a band under its caption and the level that the unit has reported.
Item {
    id: line

    required property SliderAdapter slider
    required property LabelAdapter label
    /// The name of the output, for screen readers.
    required property string where
    required property real stepSize
    required property real pageSize
    /// The position from which the track is filled.
    property real fillFrom: 0

    signal chosen

    implicitHeight: texts.height + Theme.target

    Item {
        id: texts

        width: parent.width
        height: Math.max(caption.implicitHeight, level.implicitHeight)

        FittedText {
            id: caption

            anchors.left: parent.left
            anchors.right: level.left
            anchors.rightMargin: 4
            text: line.slider.caption
            color: Theme.dimText
            font.pixelSize: Theme.smallText
            fontSizeMode: Text.HorizontalFit
            minimumPixelSize: Theme.tinyText
            Accessible.ignored: true
        }
        FittedText {
            id: level

            anchors.right: parent.right
            width: Math.min(implicitWidth, Math.max(parent.width - caption.implicitWidth - 4, parent.width * 0.46))
            text: line.label.text
            color: Theme.value
            font.pixelSize: Theme.smallText
            fontSizeMode: Text.HorizontalFit
            minimumPixelSize: Theme.tinyText
            Accessible.ignored: true
        }
    }
    LevelSlider {
        objectName: "levelSlider"
        anchors.bottom: parent.bottom
        width: parent.width
        slider: line.slider
        label: line.slider.spokenName(line.where)
        spokenValue: line.label.spoken
        fillFrom: line.fillFrom
        stepSize: line.stepSize
        pageSize: line.pageSize
        onActiveFocusChanged: {
            if (activeFocus)
                line.chosen();
        }
    }
}

import QtQuick
import Lumbra.Touch

/// A slider of a band under its caption and the value that the unit has reported: the exact one, beside the label's own
/// where that is coarser. A tap on the value, or a digit on the slider, begins to type one.
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
    /// It is a gain, not a frequency.
    property bool isGain: false
    /// The band has such a value. Its room stays.
    property bool present: true
    readonly property string value: label.exact || label.text

    signal chosen

    function type(text: string) {
        if (!slider.enabled)
            return;
        chosen();
        field.setSource("NumberField.qml", {
            text: text,
            whole: text === value,
            isGain: isGain,
            name: slider.spokenName(where)
        });
    }

    implicitHeight: texts.height + Theme.target
    Keys.onPressed: event => {
        event.accepted = /^[0-9.,+\u2212-]$/.test(event.text) && slider.enabled;
        if (event.accepted)
            type(event.text);
    }

    Item {
        id: texts

        width: parent.width
        height: Math.max(caption.implicitHeight, level.implicitHeight)
        visible: line.present

        FittedText {
            id: caption

            anchors.left: parent.left
            width: parent.width - 4 - (field.item ? field.width : level.width + own.width + own.anchors.rightMargin)
            text: line.slider.caption
            color: Theme.dimText
            font.pixelSize: Theme.smallText
            fontSizeMode: Text.HorizontalFit
            minimumPixelSize: Theme.tinyText
            Accessible.ignored: true
        }
        FittedText {
            id: own

            readonly property bool fits: parent.width >= caption.implicitWidth + implicitWidth + level.implicitWidth + 2 * Theme.gap

            anchors.right: level.left
            anchors.rightMargin: width > 0 ? Theme.smallGap : 0
            width: line.label.exact !== "" && fits ? implicitWidth : 0
            visible: width > 0 && !field.item
            text: line.label.text
            color: Theme.current ? Theme.dimText : Theme.staleText
            font.pixelSize: Theme.smallText
            Accessible.ignored: true
        }
        FittedText {
            id: level

            objectName: "level"
            anchors.right: parent.right
            width: Math.min(implicitWidth, Math.max(parent.width - caption.implicitWidth - 4, parent.width * 0.46))
            visible: !field.item
            text: line.value
            color: Theme.value
            font.pixelSize: Theme.smallText
            font.underline: line.slider.enabled
            fontSizeMode: Text.HorizontalFit
            minimumPixelSize: Theme.tinyText
            Accessible.ignored: true

            TapHandler {
                margin: 8
                enabled: line.slider.enabled
                onTapped: line.type(line.value)
            }
        }
    }
    LevelSlider {
        id: lever

        objectName: "levelSlider"
        anchors.bottom: parent.bottom
        width: parent.width
        visible: line.present
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
    Loader {
        id: field

        anchors.right: parent.right
        y: (texts.height - height) / 2
        width: Math.min(112 * Theme.textScale, parent.width * 0.6)
        onLoaded: (item as NumberField).forceActiveFocus()

        Connections {
            target: field.item
            function onTyped(value: real) {
                line.slider.moveToValue(value);
            }
            function onFinished(byKey: bool) {
                field.setSource("");
                if (byKey)
                    lever.forceActiveFocus(Qt.TabFocusReason);
            }
        }
    }
}

import QtQuick
import Lumbra.Touch

/// A slider around zero, with its caption and the level that the unit has reported.
Card {
    id: root

    required property SliderAdapter slider
    required property LabelAdapter label
    property string where: ""

    implicitHeight: column.implicitHeight + 12
    implicitWidth: 200

    Column {
        id: column

        x: 14
        y: 8
        width: parent.width - 28

        Item {
            width: parent.width
            height: Math.max(caption.implicitHeight, level.implicitHeight)

            FittedText {
                id: caption

                anchors.left: parent.left
                anchors.right: level.left
                text: root.slider.caption
                color: Theme.dimText
                Accessible.ignored: true
            }
            FittedText {
                id: level

                anchors.right: parent.right
                width: Math.min(implicitWidth, parent.width / 2)
                text: root.label.text
                color: Theme.value
                Accessible.ignored: true
            }
        }
        LevelSlider {
            objectName: "levelSlider"
            width: parent.width
            slider: root.slider
            fillFrom: slider.zeroPosition
            bubble: true
            label: root.slider.spokenName(root.where)
            spokenValue: root.label.spoken
        }
    }
}

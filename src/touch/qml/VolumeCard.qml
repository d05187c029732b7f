import QtQuick
import Lumbra.Touch

/// The volume in large text, as the unit has reported it, over its slider.
Card {
    id: root

    required property ScreenAdapter screen
    required property string where

    readonly property SliderAdapter slider: screen.slider("volumeSlider")
    readonly property LabelAdapter level: screen.label("volumeLabel")

    implicitHeight: column.implicitHeight + 16
    implicitWidth: 240

    Column {
        id: column

        x: 14
        y: 8
        width: parent.width - 28

        Item {
            width: parent.width
            height: number.implicitHeight

            FittedText {
                anchors.left: parent.left
                anchors.right: number.left
                anchors.rightMargin: Theme.smallGap
                anchors.baseline: number.baseline
                text: root.slider.caption
                color: Theme.dimText
                Accessible.ignored: true
            }
            FittedText {
                id: number

                objectName: "volumeText"
                anchors.right: parent.right
                width: Math.min(implicitWidth, parent.width * 0.65)
                horizontalAlignment: Text.AlignRight
                text: root.level.text
                font.pixelSize: Theme.hugeText
                fontSizeMode: Text.HorizontalFit
                minimumPixelSize: Theme.titleText
                font.bold: true
                Accessible.ignored: true
            }
        }
        VolumeSlider {
            objectName: "volumeSlider"
            width: parent.width
            slider: root.slider
            label: root.slider.spokenName(root.where)
            spokenValue: root.level.spoken
        }
    }
}

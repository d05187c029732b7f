import QtQuick
import Lumbra.Touch

/// The volume in large text, as the unit has reported it, between two buttons over its slider.
Card {
    id: root

    required property ScreenAdapter screen
    required property string where

    readonly property SliderAdapter slider: screen.slider("volumeSlider")
    readonly property ItemListAdapter items: screen.items

    implicitHeight: column.implicitHeight + 14
    implicitWidth: 240

    Column {
        id: column

        x: 10
        y: 10
        width: parent.width - 20
        // The bubble has its room.
        spacing: 14

        Item {
            /// Above large digits a line has room that the caption may use.
            readonly property real slack: number.font.pixelSize > Theme.hugeText ? number.height / 8 : 0

            width: parent.width
            height: Math.max(less.height, caption.height + number.height - slack)

            StepButton {
                id: less

                objectName: "less"
                anchors.left: parent.left
                anchors.verticalCenter: parent.verticalCenter
                slider: root.slider
                step: -1
                text: "\u2212"
                Accessible.name: Speech.format(qsTr("%1, quieter"), [root.slider.spokenName(root.where)])
            }
            FittedText {
                id: caption

                anchors.left: less.right
                anchors.right: more.left
                anchors.margins: Theme.smallGap
                anchors.bottom: number.top
                anchors.bottomMargin: -parent.slack
                horizontalAlignment: Text.AlignHCenter
                text: root.slider.caption
                color: Theme.dimText
                font.pixelSize: Theme.smallText
                Accessible.ignored: true
            }
            FittedText {
                id: number

                objectName: "volumeText"
                anchors.left: caption.left
                anchors.right: caption.right
                anchors.bottom: parent.bottom
                horizontalAlignment: Text.AlignHCenter
                text: root.items.level
                color: Theme.value
                font.pixelSize: root.Window.width < Theme.largeWidth ? Theme.hugeText : Theme.levelText
                fontSizeMode: Text.HorizontalFit
                minimumPixelSize: Theme.titleText
                font.bold: true
                Accessible.ignored: true
            }
            StepButton {
                id: more

                objectName: "more"
                anchors.right: parent.right
                anchors.verticalCenter: parent.verticalCenter
                slider: root.slider
                step: 1
                text: "+"
                Accessible.name: Speech.format(qsTr("%1, louder"), [root.slider.spokenName(root.where)])
            }
        }
        VolumeSlider {
            objectName: "volumeSlider"
            width: parent.width
            slider: root.slider
            label: root.slider.spokenName(root.where)
            spokenValue: root.items.spokenLevel
        }
    }
}

import QtQuick
import Lumbra.Touch

/// The volume in large text, as the unit has reported it, between two buttons over its slider.
Card {
    id: root

    required property ScreenAdapter screen
    required property string where

    readonly property SliderAdapter slider: screen.slider("volumeSlider")
    readonly property ItemListAdapter items: screen.items
    readonly property bool silent: items.condition !== ""

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
                text: root.silent && !word.beside ? root.items.condition : root.slider.caption
                color: root.silent && !word.beside ? Theme.silence : Theme.dimText
                font.pixelSize: Theme.smallText
                Accessible.ignored: true
            }
            FittedText {
                id: number

                objectName: "volumeText"
                x: caption.x + (caption.width - width - word.space) / 2
                width: Math.min(Math.ceil(implicitWidth) + 1, caption.width - word.space)
                anchors.bottom: parent.bottom
                horizontalAlignment: Text.AlignHCenter
                text: root.items.level
                color: root.silent ? Theme.staleText : Theme.value
                font.pixelSize: root.Window.width < Theme.largeWidth ? Theme.hugeText : Theme.levelText
                fontSizeMode: Text.HorizontalFit
                minimumPixelSize: Theme.titleText
                font.bold: true
                Accessible.ignored: true
            }
            FittedText {
                id: word

                /// Else it stands in place of the caption.
                readonly property bool beside: caption.width >= 160 * Theme.textScale
                readonly property real space: visible ? width + Theme.gap : 0

                objectName: "condition"
                visible: root.silent && beside
                anchors.left: number.right
                anchors.leftMargin: Theme.gap
                anchors.verticalCenter: number.verticalCenter
                width: Math.min(Math.ceil(implicitWidth) + 1, caption.width * 0.5)
                text: root.items.condition
                color: Theme.silence
                font.pixelSize: root.Window.width < Theme.largeWidth ? Theme.bodyText : Theme.titleText
                font.bold: true
                fontSizeMode: Text.HorizontalFit
                minimumPixelSize: Theme.tinyText
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
            heard: !root.silent
            label: root.slider.spokenName(root.where)
            spokenValue: root.items.spokenLevel
        }
    }
}

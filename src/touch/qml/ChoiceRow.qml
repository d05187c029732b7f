pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Lumbra.Touch

/// Segments, one of them selected, in as many rows as they need.
Item {
    id: root

    required property var choices
    required property int selected
    /// The name for screen readers.
    required property string name
    property int columns: Math.max(1, Math.min(choices.length, Math.floor(width / (80 * Theme.textScale))))
    property int textSize: Theme.bodyText
    property int rowHeight: Theme.row

    signal chosen(choice: int)

    implicitHeight: grid.implicitHeight
    implicitWidth: 160
    Accessible.role: Accessible.Grouping
    Accessible.name: name

    GridLayout {
        id: grid

        width: parent.width
        columns: root.columns
        // The gaps are part of the segments, so that a touch between two segments still hits one.
        columnSpacing: 0
        rowSpacing: 0

        Repeater {
            model: root.choices

            // Assistive technology derives the role of a control from its type.
            T.RadioButton {
                id: segment

                required property int index
                required property string modelData
                readonly property bool selected: index === root.selected
                readonly property FittedText caption: FittedText {
                    text: segment.text
                    horizontalAlignment: Text.AlignHCenter
                    font.pixelSize: root.textSize
                    font.bold: segment.selected
                    fontSizeMode: Text.HorizontalFit
                    minimumPixelSize: Theme.tinyText
                    color: !segment.enabled ? Theme.outline : segment.selected ? Theme.accentText : Theme.text
                    Accessible.ignored: true
                }
                readonly property HoldToRead reading: HoldToRead {
                    button: segment
                    caption: segment.caption
                }

                objectName: "segment" + index
                Layout.fillWidth: true
                Layout.preferredWidth: 1
                implicitHeight: root.rowHeight
                leftInset: 1
                rightInset: 1
                topInset: 1
                bottomInset: 1
                text: modelData
                checkable: false
                autoExclusive: false
                Accessible.name: Speech.format(qsTr("%1, %2"), [root.name, text])
                Accessible.checkable: true
                Accessible.checked: selected
                Accessible.onPressAction: clicked()
                Accessible.onToggleAction: clicked()
                Keys.onReturnPressed: clicked()
                Keys.onEnterPressed: clicked()
                onClicked: root.chosen(index)

                contentItem: caption
                background: Rectangle {
                    radius: 6
                    color: segment.selected ? Theme.accent : Theme.raised
                    opacity: segment.down ? 0.7 : 1

                    FocusFrame {
                        of: segment
                        border.color: Theme.text
                    }
                }
            }
        }
    }
}

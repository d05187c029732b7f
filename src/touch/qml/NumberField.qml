import QtQuick
import QtQuick.Controls.Basic
import Lumbra.Touch

/// A field to type a frequency or a gain of a band. Return takes it, Escape leaves it.
TextField {
    id: root

    /// The text is to be replaced as a whole.
    required property bool whole
    required property bool isGain
    /// The name for screen readers.
    required property string name
    /// What was typed is no value that a band can have.
    property bool refused: false

    /// The value of the slider.
    signal typed(value: real)
    signal finished(byKey: bool)

    implicitHeight: Math.ceil(contentHeight) + 10
    topPadding: 2
    bottomPadding: 2
    horizontalAlignment: Text.AlignRight
    inputMethodHints: Qt.ImhPreferNumbers | Qt.ImhNoPredictiveText
    font.pixelSize: Theme.bodyText
    color: Theme.text
    selectionColor: Theme.accent
    selectedTextColor: Theme.accentText
    selectByMouse: true
    Accessible.role: Accessible.EditableText
    Accessible.name: name
    Component.onCompleted: {
        if (whole)
            selectAll();
    }
    onTextEdited: refused = false
    onAccepted: {
        const value = isGain ? BandText.typedGain(text) : BandText.typedFrequency(text);
        refused = isNaN(value);
        if (refused)
            return;
        typed(value);
        finished(true);
    }
    Keys.onEscapePressed: finished(true)
    onActiveFocusChanged: {
        if (!activeFocus)
            finished(false);
    }

    // It covers what is below, so that nothing moves.
    Rectangle {
        anchors.right: parent.right
        anchors.top: parent.bottom
        anchors.topMargin: 2
        width: range.implicitWidth + 2 * Theme.smallGap
        height: range.implicitHeight + Theme.smallGap
        visible: root.refused
        radius: 4
        color: Theme.raised
        border.color: Theme.waiting
        border.width: 1

        Text {
            id: range

            anchors.centerIn: parent
            text: root.isGain ? qsTr("\u221215 to 15 dB") : qsTr("20 Hz to 20 kHz")
            textFormat: Text.PlainText
            color: Theme.waiting
            font.pixelSize: Theme.smallText
        }
    }

    background: Rectangle {
        color: Theme.background
        radius: 4
        border.color: root.refused ? Theme.waiting : Theme.accent
        border.width: 2
    }
}

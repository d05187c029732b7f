import QtQuick
import Lumbra.Touch

/// A button for the selected scene. For two seconds after a press it says that its command was sent.
ActionButton {
    id: root

    required property ButtonAdapter adapter
    /// The name of the scene.
    required property string where
    /// What it says when nothing was sent.
    property string words: adapter.caption

    readonly property Timer sent: Timer {
        interval: 2000
    }

    function press() {
        if (!adapter.enabled)
            return;
        adapter.press();
        sent.restart();
    }

    text: sent.running ? qsTr("Sent") : words
    enabled: adapter.enabled
    Accessible.name: Speech.format(sent.running ? qsTr("%1 %2, sent") : qsTr("%1 %2"), [adapter.caption, where])
    onWhereChanged: sent.stop()
}

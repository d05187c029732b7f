import QtQuick
import QtQuick.Layouts
import Lumbra.Touch

/// One of the groups of zones.
ItemPage {
    id: page

    items: "groupPicker"

    SwitchPair {
        Layout.fillWidth: true
        Layout.row: 3
        screen: page.screen
        where: page.where
        first: "muteSwitch"
        second: "powerSwitch"
    }
    Text {
        objectName: "groupNote"
        Layout.fillWidth: true
        Layout.row: 4
        text: qsTr("What was last set for the group. Its zones may play at other levels.")
        textFormat: Text.PlainText
        wrapMode: Text.Wrap
        color: Theme.dimText
        font.pixelSize: Theme.smallText
    }
}

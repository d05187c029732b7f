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
}

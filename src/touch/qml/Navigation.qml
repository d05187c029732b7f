pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Layouts
import Lumbra.Touch

/// The tabs: a bar at the bottom, or a rail at the side.
Rectangle {
    id: root

    required property AppAdapter app
    required property bool rail

    implicitWidth: Math.max(96, 72 * Theme.textScale)
    implicitHeight: grid.implicitHeight + 8
    color: Theme.surface
    Accessible.role: Accessible.PageTabList
    Accessible.name: qsTr("Screens")

    GridLayout {
        id: grid

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.margins: 4
        flow: root.rail ? GridLayout.TopToBottom : GridLayout.LeftToRight
        rows: root.rail ? -1 : 1
        columns: root.rail ? 1 : -1
        rowSpacing: 8
        columnSpacing: 4

        Repeater {
            model: root.app.tabs

            NavigationItem {
                required property int index
                required property ScreenAdapter modelData

                objectName: "tab-" + modelData.name
                Layout.fillWidth: true
                Layout.preferredWidth: 1
                text: modelData.title
                iconSource: "../icons/" + modelData.name + ".svg"
                selected: root.app.selected === index
                onClicked: root.app.selectTab(index)
            }
        }
    }
}

import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Lumbra.Touch

/// The header: the title of the screen, the address of the unit, the state of the link, and the button of the
/// settings.
Rectangle {
    id: root

    required property AppAdapter app
    readonly property ActivityAdapter activity: app.screen ? app.screen.activity("spinner") : null

    readonly property color stateColor: {
        switch (app.link.state) {
        case LinkAdapter.Connected:
            return Theme.good;
        case LinkAdapter.Connecting:
            return Theme.waiting;
        default:
            return Theme.bad;
        }
    }
    readonly property string stateText: {
        switch (app.link.state) {
        case LinkAdapter.Connected:
            return qsTr("connected");
        case LinkAdapter.Connecting:
            return qsTr("connecting");
        default:
            return qsTr("not connected");
        }
    }

    implicitHeight: Math.max(Theme.target + 8, texts.implicitHeight + 12) + (reconnect.visible ? reconnect.height + 8 : 0)
    color: Theme.surface

    RowLayout {
        id: row

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.leftMargin: Theme.gap
        anchors.rightMargin: 4
        height: Math.max(Theme.target + 8, texts.implicitHeight + 12)
        spacing: Theme.smallGap

        ColumnLayout {
            id: texts

            Layout.fillWidth: true
            spacing: 0

            FittedText {
                objectName: "screenTitle"
                Layout.fillWidth: true
                text: root.app.screen ? root.app.screen.title : ""
                font.pixelSize: Theme.titleText
                font.bold: true
                Accessible.role: Accessible.Heading
                Accessible.name: text
            }
            GridLayout {
                Layout.fillWidth: true
                // Large texts in a small window take two lines.
                columns: root.width < 340 * Theme.textScale ? 1 : 2
                columnSpacing: Theme.gap
                rowSpacing: 0
                Accessible.role: Accessible.StaticText
                Accessible.name: Speech.format(qsTr("Unit at %1, %2"), [root.app.link.address, root.stateText])

                FittedText {
                    objectName: "linkState"
                    // A layout rounds widths down, which would elide the last letters.
                    Layout.preferredWidth: Math.ceil(implicitWidth) + 1
                    leftPadding: 16
                    text: root.stateText
                    color: root.stateColor
                    font.pixelSize: Theme.smallText
                    Accessible.ignored: true

                    Rectangle {
                        anchors.verticalCenter: parent.verticalCenter
                        width: 10
                        height: 10
                        radius: 5
                        color: root.stateColor
                    }
                }
                FittedText {
                    objectName: "address"
                    Layout.fillWidth: true
                    text: root.app.link.address
                    color: Theme.dimText
                    font.pixelSize: Theme.smallText
                    Accessible.ignored: true
                }
            }
        }
        BusyArc {
            objectName: "busy"
            Layout.preferredWidth: 28
            Layout.preferredHeight: 28
            running: root.activity ? root.activity.animating : false
        }
        T.AbstractButton {
            id: gear

            objectName: "settingsButton"
            Layout.preferredWidth: Theme.target
            Layout.preferredHeight: Theme.target
            text: qsTr("Settings")
            Accessible.role: Accessible.Button
            Accessible.name: text
            Keys.onReturnPressed: clicked()
            Keys.onEnterPressed: clicked()
            onClicked: root.app.settings.open()

            contentItem: Item {
                Image {
                    anchors.centerIn: parent
                    source: "../icons/settings.svg"
                    sourceSize.width: 24
                    sourceSize.height: 24
                    asynchronous: true
                }
            }
            background: Item {
                FocusFrame {
                    of: gear
                    anchors.margins: 2
                }
            }
        }
    }
    ActionButton {
        id: reconnect

        objectName: "reconnectButton"
        anchors.top: row.bottom
        x: Theme.gap
        width: Math.min(parent.width - 2 * Theme.gap, 480)
        visible: root.app.link.state === LinkAdapter.NotConnected
        prominent: true
        text: qsTr("Reconnect")
        onClicked: {
            if (visible)
                root.app.link.reconnect();
        }
        // A button that is gone must not keep the keyboard focus.
        onVisibleChanged: {
            if (!visible && activeFocus)
                nextItemInFocusChain(true).forceActiveFocus(Qt.OtherFocusReason);
        }
    }
}

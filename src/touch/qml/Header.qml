import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Lumbra.Touch

/// The header: the title of the screen, the state of the link, what is connected to, and the buttons that
/// reconnect and open the settings. Its height does not depend on any state.
Rectangle {
    id: root

    required property AppAdapter app
    readonly property ActivityAdapter activity: app.screen ? app.screen.activity("spinner") : null
    readonly property bool closed: app.link.state === LinkAdapter.NotConnected || app.link.state === LinkAdapter.Retrying

    readonly property color stateColor: {
        switch (app.link.state) {
        case LinkAdapter.Current:
            return Theme.good;
        case LinkAdapter.Connecting:
        case LinkAdapter.Waiting:
            return Theme.waiting;
        default:
            return Theme.bad;
        }
    }
    readonly property bool silent: app.link.state === LinkAdapter.Silent
    /// What the state leaves for a button: it is never cut.
    readonly property real buttonRoom: width - Theme.gap - 4 - 3 * Theme.smallGap - gear.width - Math.ceil(words.implicitWidth) - 1
    readonly property bool narrow: width < 480 * Theme.textScale

    // Not that of the texts, which depends on what they say.
    implicitHeight: Math.max(Theme.target + 16, Math.ceil((Theme.titleText + (narrow ? 2 : 1) * Theme.smallText) * 1.25) + 6)
    color: Theme.surface

    RowLayout {
        anchors.fill: parent
        anchors.leftMargin: Theme.gap
        anchors.rightMargin: 4
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
                columns: root.narrow ? 1 : 2
                columnSpacing: Theme.gap
                rowSpacing: 0
                Accessible.role: Accessible.StaticText
                Accessible.name: Speech.format(qsTr("Unit at %1, %2"), [root.app.link.address, root.app.link.text])

                FittedText {
                    id: words

                    objectName: "linkState"
                    // A layout rounds widths down, which would elide the last letters.
                    Layout.preferredWidth: Math.ceil(implicitWidth) + 1
                    Layout.maximumWidth: Math.ceil(implicitWidth) + 1
                    Layout.fillWidth: true
                    leftPadding: 16
                    text: root.app.link.text
                    color: root.stateColor
                    font.pixelSize: Theme.smallText
                    fontSizeMode: Text.HorizontalFit
                    minimumPixelSize: Theme.tinyText
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
            // A query that was never answered is not awaited once the link is closed, or for ever.
            visible: !root.closed && !root.silent
            running: root.activity ? root.activity.animating : false
        }
        HeaderButton {
            objectName: "reconnectButton"
            visible: root.closed
            prominent: true
            words: qsTr("Reconnect")
            iconSource: "../icons/reconnect.svg"
            room: root.buttonRoom
            onClicked: root.app.link.reconnect()
        }
        HeaderButton {
            objectName: "checkUnitButton"
            visible: root.silent
            words: qsTr("Unit and address")
            iconSource: "../icons/unit.svg"
            room: root.buttonRoom
            onClicked: root.app.settings.open()
        }
        T.AbstractButton {
            id: gear

            readonly property string tip: text

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
}

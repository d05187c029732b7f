pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Templates as T
import Lumbra.Touch

/// The window: the header, the current screen and the tabs, and over them the alert and the settings.
T.ApplicationWindow {
    id: window

    required property AppAdapter app
    readonly property bool rail: width >= Theme.railWidth

    // When the layout changes or the window is hidden, what is under a finger is no longer the slider that it
    // grabbed.
    onWidthChanged: app.handsOff()
    onHeightChanged: app.handsOff()
    onVisibilityChanged: app.handsOff()

    width: 1000
    height: 700
    minimumWidth: 320
    minimumHeight: 360
    title: qsTr("Lumbra Remote")
    color: Theme.background

    Binding {
        target: Theme
        property: "current"
        value: window.app.settings.shown || !window.app.screen || window.app.screen.current
    }
    Item {
        id: frame

        anchors.fill: parent
        visible: !window.app.settings.shown
        Keys.onEscapePressed: window.app.alert.dismiss()

        Header {
            id: header

            anchors.left: window.rail ? navigation.right : parent.left
            anchors.right: parent.right
            anchors.top: parent.top
            app: window.app
        }
        Repeater {
            model: window.app.tabs

            Loader {
                required property ScreenAdapter modelData
                readonly property bool shown: window.app.screen === modelData

                anchors.left: window.rail ? navigation.right : frame.left
                anchors.right: frame.right
                anchors.top: header.bottom
                anchors.bottom: window.rail ? frame.bottom : navigation.top
                visible: shown
                clip: true
                // A screen stays loaded once it has been shown.
                onShownChanged: load()
                Component.onCompleted: load()

                function load() {
                    if (!shown || item)
                        return;
                    const name = modelData.name;
                    setSource(name.charAt(0).toUpperCase() + name.slice(1) + "Screen.qml", {
                        screen: modelData
                    });
                }
            }
        }
        Loader {
            readonly property bool shown: window.app.alert.shown

            anchors.horizontalCenter: header.horizontalCenter
            y: (window.rail ? frame.height : navigation.y) - height - Theme.gap
            width: Math.min(header.width - 2 * Theme.gap, 560 * Theme.textScale)
            onShownChanged: load()
            Component.onCompleted: load()

            function load() {
                if (shown)
                    setSource("AlertSheet.qml", {
                        app: window.app
                    });
                else
                    unload();
            }
            // What is gone must not keep the keyboard focus.
            function unload() {
                let focused = window.activeFocusItem;
                while (focused && focused !== item)
                    focused = focused.parent;
                if (focused)
                    header.nextItemInFocusChain(true).forceActiveFocus(Qt.OtherFocusReason);
                setSource("");
            }
        }
        Navigation {
            id: navigation

            anchors.left: parent.left
            anchors.bottom: parent.bottom
            width: window.rail ? implicitWidth : parent.width
            height: window.rail ? parent.height : implicitHeight
            app: window.app
            rail: window.rail
        }
    }
    Loader {
        readonly property bool shown: window.app.settings.shown
        property Item before: null

        anchors.fill: parent
        onShownChanged: {
            if (shown) {
                before = window.activeFocusItem;
                setSource("SettingsScreen.qml", {
                    settings: window.app.settings
                });
            } else {
                setSource("");
                if (before)
                    before.forceActiveFocus(Qt.OtherFocusReason);
            }
        }
        onLoaded: forceActiveFocus()
        focus: shown
    }
    TextTips {
        anchors.fill: parent
    }
}

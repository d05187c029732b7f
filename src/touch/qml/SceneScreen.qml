import QtQuick
import QtQuick.Layouts
import Lumbra.Touch

/// The ten scenes, to recall and to store.
ScreenPage {
    id: page

    required property ScreenAdapter screen
    readonly property PickerAdapter picker: screen.picker("scenePicker")
    /// A wheel that a finger has turned does not show the scene that would be used.
    readonly property bool sure: wide || !wheel.loose

    maximumWidth: wide ? 1120 : 560

    ColumnLayout {
        width: parent.width
        spacing: page.wide ? 24 : Theme.gap

        WheelPicker {
            id: wheel

            objectName: "scenePicker"
            Layout.fillWidth: true
            visible: !page.wide
            picker: page.picker
            visibleRows: page.height > 240 + 5 * Theme.row ? 5 : 3
        }
        SceneTiles {
            objectName: "scenePicker"
            Layout.fillWidth: true
            visible: page.wide
            picker: page.picker
            tileHeight: Math.max(56, Math.min(96, page.height / 5))
        }
        // Far apart: what a slip of the finger stores is lost.
        GridLayout {
            Layout.fillWidth: true
            columns: page.wide ? 2 : 1
            columnSpacing: 96
            rowSpacing: 48

            SceneButton {
                objectName: "loadSceneButton"
                Layout.fillWidth: true
                Layout.preferredWidth: 2
                implicitHeight: Math.max(64, Theme.row)
                prominent: true
                adapter: page.screen.button("loadSceneButton")
                words: Speech.format(qsTr("Recall %1"), [where])
                where: page.picker.selectedText
                enabled: adapter.enabled && page.sure
                onClicked: {
                    wheel.commit();
                    press();
                }
            }
            SceneButton {
                id: store

                objectName: "saveSceneButton"
                Layout.fillWidth: true
                Layout.preferredWidth: 1
                adapter: page.screen.button("saveSceneButton")
                where: page.picker.selectedText
                enabled: adapter.enabled && page.sure
                onClicked: {
                    wheel.commit();
                    question.byKeyboard = visualFocus;
                    question.setSource("StoreDialog.qml", {
                        screen: page.screen,
                        button: store,
                        byKeyboard: visualFocus
                    });
                }
            }
        }
    }
    Loader {
        id: question

        property bool byKeyboard: false

        Connections {
            target: question.item
            function onClosed() {
                question.setSource("");
                if (store.activeFocus && question.byKeyboard)
                    store.focusReason = Qt.TabFocusReason;
            }
        }
    }
}

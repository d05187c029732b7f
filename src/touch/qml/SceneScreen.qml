import QtQuick
import QtQuick.Layouts
import Lumbra.Touch

/// The ten scenes, to recall and to store.
ScreenPage {
    id: page

    required property ScreenAdapter screen
    current: screen.current
    readonly property string where: screen.picker("scenePicker").selectedText

    maximumWidth: 560

    ColumnLayout {
        width: parent.width
        spacing: Theme.gap

        WheelPicker {
            id: wheel

            objectName: "scenePicker"
            Layout.fillWidth: true
            picker: page.screen.picker("scenePicker")
            visibleRows: page.height > 200 + 5 * Theme.row ? 5 : 3
        }
        ActionButton {
            readonly property ButtonAdapter adapter: page.screen.button("loadSceneButton")

            objectName: "loadSceneButton"
            Layout.fillWidth: true
            implicitHeight: Math.max(64, Theme.row)
            prominent: true
            text: adapter.caption
            // A loose wheel does not show the scene that would be used.
            enabled: adapter.enabled && !wheel.loose
            Accessible.name: Speech.format(qsTr("%1 %2"), [text, page.where])
            onClicked: {
                wheel.commit();
                adapter.press();
            }
        }
        ActionButton {
            readonly property ButtonAdapter adapter: page.screen.button("saveSceneButton")

            objectName: "saveSceneButton"
            Layout.fillWidth: true
            text: adapter.caption
            // A loose wheel does not show the scene that would be used.
            enabled: adapter.enabled && !wheel.loose
            Accessible.name: Speech.format(qsTr("%1 %2"), [text, page.where])
            onClicked: {
                wheel.commit();
                adapter.press();
            }
        }
    }
}

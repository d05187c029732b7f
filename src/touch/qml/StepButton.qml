import QtQuick
import QtQuick.Templates as T
import Lumbra.Touch

/// A button that moves a slider by one step, and slowly goes on while it is held. The keyboard has the slider itself.
T.AbstractButton {
    id: root

    required property SliderAdapter slider
    required property real step
    /// It has moved the slider since it was pressed.
    property bool repeated: false

    implicitWidth: 64
    implicitHeight: 64
    focusPolicy: Qt.NoFocus
    hoverEnabled: true
    enabled: slider.enabled
    Accessible.role: Accessible.Button
    Accessible.onPressAction: slider.moveBy(step)
    onPressed: {
        repeated = false;
        grab.begin();
    }
    onCanceled: grab.end()
    onClicked: {
        if (!repeated)
            grab.moveBy(step);
        grab.end();
    }

    contentItem: Text {
        text: root.text
        textFormat: Text.PlainText
        color: root.enabled ? Theme.value : Theme.staleText
        font.pixelSize: 30
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        Accessible.ignored: true
    }
    background: Rectangle {
        radius: Theme.radius
        color: root.hovered ? Qt.lighter(Theme.raised, 1.2) : Theme.raised
        opacity: root.down ? 0.7 : 1
        border.color: Theme.outline
        border.width: 1
    }

    SliderGrab {
        id: grab

        slider: root.slider
    }
    Timer {
        interval: root.repeated ? 333 : 500
        repeat: true
        running: root.pressed
        onTriggered: {
            root.repeated = true;
            grab.moveBy(root.step);
        }
    }
}

import QtQuick
import QtQuick.Templates as T

/// Keeps a finger that rests on a button, to read its elided caption, from pressing it. (A button whose
/// pressAndHold is handled emits no click after a hold.)
QtObject {
    id: root

    required property T.AbstractButton button
    required property FittedText caption
    readonly property bool cut: caption.truncated

    function hold() {
    }

    onCutChanged: cut ? button.pressAndHold.connect(hold) : button.pressAndHold.disconnect(hold)
}

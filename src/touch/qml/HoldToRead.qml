import QtQuick
import QtQuick.Templates as T

/// A finger that stays on a button to read its cut caption whole doesn't press it. (A button whose hold is listened to
/// has no click after one.)
QtObject {
    id: root

    required property T.AbstractButton button
    required property FittedText caption
    readonly property bool cut: caption.truncated

    function hold() {
    }

    onCutChanged: cut ? button.pressAndHold.connect(hold) : button.pressAndHold.disconnect(hold)
}

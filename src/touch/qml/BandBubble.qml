import QtQuick
import Lumbra.Touch

/// The exact setting of a band, while its handle moves. Above the handle, where no finger covers it, or beside
/// it where there is no room above.
Rectangle {
    id: root

    /// The handle that moves; null if none does.
    property BandHandle handle: null
    required property real handleRadius
    /// The room of the bubble, in the coordinates of the handle's parent.
    required property rect room

    readonly property real handleX: handle ? handle.x + handle.width / 2 : 0
    readonly property real handleY: handle ? handle.y + handle.height / 2 : 0
    readonly property real distance: handleRadius + Theme.gap
    readonly property bool above: handleY - distance - height >= room.y

    function within(place: real, from: real, size: real): real {
        return Math.max(from, Math.min(from + size, place));
    }

    visible: handle !== null
    x: {
        if (above)
            return within(handleX - width / 2, room.x, room.width - width);
        return handleX + distance + width <= room.x + room.width ? handleX + distance : handleX - distance - width;
    }
    y: within(above ? handleY - distance - height : handleY - height / 2, room.y, room.height - height)
    z: 100
    width: Math.ceil(shown.implicitWidth) + 2 * Theme.smallGap
    height: shown.implicitHeight + Theme.smallGap
    radius: Theme.smallGap
    color: Theme.accent

    Text {
        id: shown

        objectName: "bubbleText"
        anchors.centerIn: parent
        text: root.handle ? root.handle.setting : ""
        textFormat: Text.PlainText
        font.pixelSize: Theme.bodyText
        font.bold: true
        color: Theme.accentText
        Accessible.ignored: true
    }
}

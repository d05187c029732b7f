import QtQuick
import Lumbra.Touch

/// A switch with its caption.
SwitchBase {
    id: root

    required property SwitchAdapter adapter
    /// The name of the item, for screen readers; may be empty.
    property string where: ""

    text: adapter.caption
    enabled: adapter.enabled
    on: adapter.on
    known: adapter.known
    spokenName: adapter.spokenName(where)
    onFlipped: on => adapter.flip(on)
}

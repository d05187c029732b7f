import QtQuick

/// Covers the window and shows a tip while the pointer or a finger rests on something: an elided text in full, or the
/// `tip` of an item that has such a text, as a button with only an icon has. There is one for all, because a watcher for
/// each would slow down the start.
Item {
    id: root

    /// What is under the pointer or the finger and has a tip.
    property Item tipped: null

    function tipOf(item: var): string {
        return item instanceof FittedText ? item.truncated ? item.text : "" : item.tip || "";
    }
    function tippedAt(item: Item, x: real, y: real): Item {
        for (let at = item.children.length - 1; at >= 0; --at) {
            const child = item.children[at];
            if (!child.visible || child === root)
                continue;
            const place = item.mapToItem(child, x, y);
            if (child.clip && !child.contains(place))
                continue;
            const found = tippedAt(child, place.x, place.y);
            if (found)
                return found;
            if (tipOf(child) && child.contains(place))
                return child;
        }
        return null;
    }
    function look(place: point) {
        tipped = tippedAt(parent, place.x, place.y);
    }

    HoverHandler {
        // An item that covers others takes their hover events.
        parent: root.parent
        acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad | PointerDevice.Stylus

        onPointChanged: root.look(point.position)
        onHoveredChanged: {
            if (!hovered)
                root.tipped = null;
        }
    }
    TapHandler {
        acceptedDevices: PointerDevice.TouchScreen
        onLongPressed: root.look(point.position)
        onPressedChanged: {
            if (!pressed)
                root.tipped = null;
        }
    }
    Loader {
        readonly property Item tipped: root.tipped

        objectName: "tip"
        onTippedChanged: {
            if (!tipped) {
                setSource("");
                return;
            }
            const place = tipped.mapToItem(root, 0, 0);
            x = place.x;
            y = place.y;
            width = tipped.width;
            height = tipped.height;
            setSource("TextTip.qml", {
                text: root.tipOf(tipped)
            });
        }
    }
}

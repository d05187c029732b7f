import QtQuick

/// Covers the window and shows an elided text in full while the pointer or a finger rests on it. There is one
/// for all texts, because a watcher for each would slow down the start.
Item {
    id: root

    /// The elided text under the pointer or the finger.
    property FittedText cut: null

    function textAt(item: Item, x: real, y: real): FittedText {
        for (let at = item.children.length - 1; at >= 0; --at) {
            const child = item.children[at];
            if (!child.visible || child === root)
                continue;
            const place = item.mapToItem(child, x, y);
            if (child.clip && !child.contains(place))
                continue;
            const found = textAt(child, place.x, place.y);
            if (found)
                return found;
            if (child instanceof FittedText && child.truncated && child.contains(place))
                return child;
        }
        return null;
    }
    function look(place: point) {
        cut = textAt(parent, place.x, place.y);
    }

    HoverHandler {
        acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad | PointerDevice.Stylus

        onPointChanged: root.look(point.position)
        onHoveredChanged: {
            if (!hovered)
                root.cut = null;
        }
    }
    TapHandler {
        acceptedDevices: PointerDevice.TouchScreen
        onLongPressed: root.look(point.position)
        onPressedChanged: {
            if (!pressed)
                root.cut = null;
        }
    }
    Loader {
        readonly property FittedText cut: root.cut

        objectName: "tip"
        onCutChanged: {
            if (!cut) {
                setSource("");
                return;
            }
            const place = cut.mapToItem(root, 0, 0);
            x = place.x;
            y = place.y;
            width = cut.width;
            height = cut.height;
            setSource("TextTip.qml", {
                text: cut.text
            });
        }
    }
}

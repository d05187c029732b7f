import QtQuick

/// The page of a screen. It scrolls if its content is taller than the window, and centres it in a very wide
/// one.
Flickable {
    id: root

    default property alias content: holder.data
    property int maximumWidth: 1760
    /// The parts are side by side.
    readonly property bool wide: width >= Theme.columnsWidth

    contentWidth: width
    contentHeight: holder.height + 2 * Theme.gap
    boundsBehavior: Flickable.StopAtBounds
    flickableDirection: Flickable.VerticalFlick

    /// Scrolls the item with the keyboard focus into view.
    function reveal(item: Item) {
        if (!item)
            return;
        let parent = item;
        while (parent && parent !== holder)
            parent = parent.parent;
        if (!parent)
            return;
        const top = item.mapToItem(contentItem, 0, 0).y;
        if (top < contentY + Theme.gap)
            contentY = Math.max(0, top - Theme.gap);
        else if (top + item.height > contentY + height - Theme.gap)
            contentY = Math.min(Math.max(0, contentHeight - height), top + item.height + Theme.gap - height);
    }

    Connections {
        target: root.Window.window
        function onActiveFocusItemChanged() {
            if (root.visible)
                root.reveal(root.Window.window.activeFocusItem);
        }
    }
    Item {
        id: holder

        objectName: "values"
        x: (root.width - width) / 2
        y: Theme.gap
        width: Math.min(root.width - 2 * Theme.gap, root.maximumWidth)
        height: childrenRect.height
    }
    // While the page scrolls, the mouse wheel keeps scrolling it and does not turn controls that pass under
    // the pointer.
    onContentYChanged: scrolling.restart()

    Timer {
        id: scrolling

        interval: 400
    }
    Item {
        parent: root
        anchors.fill: parent

        WheelHandler {
            enabled: scrolling.running
            acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad
            onWheel: event => {
                scrolling.restart();
                const most = Math.max(0, root.contentHeight - root.height);
                root.contentY = Math.max(0, Math.min(most, root.contentY - event.angleDelta.y / 120 * Theme.row));
            }
        }
    }
    ScrollMark {
        view: root
    }
}

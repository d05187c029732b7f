import QtQuick
import QtQuick.Layouts

/// A button of the header: its words, or where these would leave too little room, its icon.
ActionButton {
    id: root

    required property string words
    required property url iconSource
    /// The width that it may have.
    required property real room
    readonly property bool compact: metrics.advanceWidth + leftPadding + rightPadding > room
    readonly property string tip: compact ? words : ""

    text: compact ? "" : words
    Layout.preferredWidth: compact ? Math.max(Theme.target, implicitHeight) : Math.ceil(implicitWidth) + 1
    Accessible.name: words
    // A button that is gone must not keep the keyboard focus.
    onVisibleChanged: {
        if (!visible && activeFocus)
            nextItemInFocusChain(true).forceActiveFocus(Qt.OtherFocusReason);
    }

    TextMetrics {
        id: metrics

        font: root.font
        text: root.words
    }
    Image {
        anchors.centerIn: parent
        visible: root.compact
        source: root.iconSource
        sourceSize.width: 24
        sourceSize.height: 24
        asynchronous: true
    }
}

pragma Singleton
import QtQuick

/// Colours, sizes and text sizes of the whole program. Each text colour has a contrast of at least 4.5:1 on
/// each of the three surfaces, each outline and fill one of 3:1. Nothing is dimmed by its opacity, which would take
/// that away: what is not certain, silent or locked has no colour.
QtObject {
    readonly property color background: "#101418"
    readonly property color surface: "#1b2127"
    readonly property color raised: "#28313a"
    readonly property color hover: "#222a31"
    readonly property color outline: "#8e9ba8"
    readonly property color text: "#f2f5f7"
    readonly property color dimText: "#b4c0cb"
    readonly property color accent: "#5cc8ff"
    readonly property color accentText: "#06222f"
    readonly property color good: "#6fdc8c"
    readonly property color waiting: "#ffd166"
    readonly property color bad: "#ff9d94"
    readonly property color scrim: "#c0000000"

    /// Whether the values in sight are what the unit has now.
    property bool current: true
    /// Fills and texts without a colour: of values that are not certain, of what is silent, and of what is locked.
    readonly property color stale: "#8796a3"
    readonly property color staleText: "#9aa6b1"
    /// Those of values.
    readonly property color live: current ? accent : stale
    readonly property color value: current ? text : staleText
    /// Of what keeps a room silent.
    readonly property color silence: current ? waiting : staleText

    /// The scale of texts that the user has set in the system, 1 to 2. The usual font is 12 pixels high.
    property real textScale: Math.max(1, Math.min(2, system.font.pixelSize / 12))
    readonly property TextMetrics system: TextMetrics {}
    /// The smallest size to which a text is shrunk before it is elided.
    readonly property int tinyText: Math.round(11 * textScale)
    readonly property int smallText: Math.round(13 * textScale)
    readonly property int bodyText: Math.round(15 * textScale)
    readonly property int titleText: Math.round(20 * textScale)
    /// The name of the item and its level, to be read from two metres.
    readonly property int itemText: Math.round(28 * textScale)
    readonly property int levelText: Math.round(64 * textScale)
    readonly property int hugeText: Math.round(34 * textScale)

    /// The smallest size of a touch target.
    readonly property int target: 48
    /// The height of a row of text that can be touched.
    readonly property int row: Math.max(target, Math.round(bodyText * 2.2))
    readonly property int gap: 12
    readonly property int smallGap: 6
    readonly property int radius: 10

    /// The window width from which the tabs are a rail at the side.
    readonly property int railWidth: 840
    /// The screen width from which its parts are side by side.
    readonly property int columnsWidth: 600
    /// The window height from which the inputs are a list.
    readonly property int listHeight: 480
    /// The window width from which texts can be read from two metres.
    readonly property int largeWidth: 800
}

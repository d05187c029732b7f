import QtQuick
import QtQuick.Layouts
import Lumbra.Touch

/// One of the unit's outputs.
ScreenPage {
    id: page

    required property ScreenAdapter screen
}

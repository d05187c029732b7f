import QtQuick
import QtQuick.Layouts

/// The caption of a setting.
FittedText {
    Layout.fillWidth: true
    color: Theme.dimText
    font.pixelSize: Theme.smallText
    Accessible.ignored: true
}

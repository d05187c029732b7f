import QtQuick
import QtQuick.Layouts

/// Stands over a setting.
FittedText {
    Layout.fillWidth: true
    color: Theme.dimText
    font.pixelSize: Theme.smallText
    Accessible.ignored: true
}

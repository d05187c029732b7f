import QtQuick

/// A line of plain text, elided if it does not fit; TextTips then shows it in full.
Text {
    color: Theme.text
    font.pixelSize: Theme.bodyText
    textFormat: Text.PlainText
    elide: Text.ElideRight
    verticalAlignment: Text.AlignVCenter
}

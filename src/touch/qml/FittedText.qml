import QtQuick

/// A line of plain text that ends in an ellipsis where it doesn't fit; TextTips then shows it whole.
Text {
    color: Theme.text
    font.pixelSize: Theme.bodyText
    textFormat: Text.PlainText
    elide: Text.ElideRight
    verticalAlignment: Text.AlignVCenter
}

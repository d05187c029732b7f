import QtQuick

/// Shows at the right edge which part of a view is in sight, if it is not all.
Rectangle {
    required property Flickable view

    parent: view
    x: view.width - width - 2
    y: view.visibleArea.yPosition * view.height
    width: 4
    height: view.visibleArea.heightRatio * view.height
    radius: 2
    visible: view.visibleArea.heightRatio < 1
    color: Theme.outline
}

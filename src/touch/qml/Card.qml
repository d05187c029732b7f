import QtQuick

/// A surface that groups related controls.
Rectangle {
    color: Theme.surface
    radius: Theme.radius
}

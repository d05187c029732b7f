import QtQuick

/// A surface that groups what belongs together.
Rectangle {
    color: Theme.surface
    radius: Theme.radius
}

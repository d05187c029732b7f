import QtQuick

/// Turns while something is awaited. It only exists while it turns, so that nothing moves when nothing happens.
Loader {
    id: root

    property bool running: false

    width: 28
    height: 28
    active: running && visible
    Accessible.role: Accessible.Indicator
    Accessible.name: running ? qsTr("Waiting for the unit") : ""
    Accessible.ignored: !running
    source: "BusyImage.qml"
}

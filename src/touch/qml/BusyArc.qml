import QtQuick

/// A turning arc that shows that something is awaited. It exists only while it turns, so that nothing is
/// animated when idle.
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

import QtQuick
import QtQuick.Controls.Basic

ApplicationWindow {
    width: 1000
    height: 700
    visible: true
}

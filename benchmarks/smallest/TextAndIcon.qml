import QtQuick
import QtQuick.Controls.Basic

ApplicationWindow {
    width: 1000
    height: 700
    visible: true

    Text {
        text: "Kitchen"
        font.family: "Inter"
    }
    Image {
        y: 40
        source: "settings.svg"
    }
}

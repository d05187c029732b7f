import QtQuick

/// One row of a wheel.
FittedText {
    id: root

    required property string display
    required property int index
    required property bool inMiddle
    required property bool large
    /// The wheel is moving: a touch then stops it and does not count as a tap.
    required property bool moving

    signal picked(row: int, text: string)

    text: display
    leftPadding: 8
    rightPadding: 8
    horizontalAlignment: Text.AlignHCenter
    font.pixelSize: !inMiddle ? Theme.bodyText : large ? Theme.itemText : Math.round(Theme.bodyText * 1.15)
    font.bold: inMiddle
    fontSizeMode: Text.HorizontalFit
    minimumPixelSize: Theme.smallText
    color: !Theme.current ? Theme.staleText : inMiddle || hover.hovered ? Theme.text : Theme.dimText
    Accessible.ignored: true

    HoverHandler {
        id: hover

        acceptedDevices: PointerDevice.Mouse
    }
    TapHandler {
        property bool wasMoving: false
        property string seen: ""

        onPressedChanged: {
            if (!pressed)
                return;
            wasMoving = root.moving;
            seen = root.display;
        }
        onTapped: {
            if (!wasMoving)
                root.picked(root.index, seen);
        }
    }
}

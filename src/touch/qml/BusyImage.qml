import QtQuick

/// The arc while it turns.
Image {
    source: "../icons/busy.svg"
    sourceSize.width: 28
    sourceSize.height: 28
    asynchronous: true

    RotationAnimator on rotation {
        from: 0
        to: 360
        duration: 1000
        loops: Animation.Infinite
    }
}

/// A volume slider. Home and End do nothing: nobody wants either end by accident.
LevelSlider {
    endKeys: false
    bubble: true
    thickness: 20
    implicitHeight: 56
}

/// The slider of a volume: Home and End do nothing on it, for neither end is what anybody wants by accident.
LevelSlider {
    endKeys: false
    thickness: 20
    implicitHeight: 64
}

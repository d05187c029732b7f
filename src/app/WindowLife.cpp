#include "app/WindowLife.h"

namespace lumbra {

void WindowLife::setVisible(bool visible) {
    visible_ = visible;
    settle();
}

void WindowLife::setSettingsOpen(bool open) {
    settingsOpen_ = open;
    settle();
}

void WindowLife::settle() {
    if (const bool present = visible_ && !settingsOpen_; present == present_)
        return;
    present_ = !present_;
    if (present_) {
        application_.enterForeground();
        application_.becomeActive();
    } else {
        application_.resignActive();
        application_.enterBackground();
    }
}

} // namespace lumbra

#include "app/WindowLife.h"

namespace lumbra {

void WindowLife::setVisibility(Visibility visibility) {
    visibility_ = visibility;
    settle();
}

void WindowLife::setSettingsOpen(bool open) {
    settingsOpen_ = open;
    settle();
}

WindowLife::Visibility WindowLife::wanted() const {
    return settingsOpen_ ? Visibility::Hidden : visibility_;
}

void WindowLife::settle() {
    // One step at a time, because an event may change the wanted visibility.
    while (announced_ != wanted()) {
        if (announced_ < wanted()) {
            const bool leaving = announced_ == Visibility::Active;
            announced_ = leaving ? Visibility::Inactive : Visibility::Hidden;
            leaving ? events_.resignActive() : events_.enterBackground();
        } else {
            const bool waking = announced_ == Visibility::Hidden;
            announced_ = waking ? Visibility::Inactive : Visibility::Active;
            waking ? events_.enterForeground() : events_.becomeActive();
        }
    }
}

} // namespace lumbra

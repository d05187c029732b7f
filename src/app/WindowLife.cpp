#include "app/WindowLife.h"

namespace lumbra {

void WindowLife::setWindow(Sight sight) {
    window_ = sight;
    settle();
}

void WindowLife::setSettingsOpen(bool open) {
    settingsOpen_ = open;
    settle();
}

WindowLife::Sight WindowLife::wanted() const {
    return settingsOpen_ ? Sight::Hidden : window_;
}

void WindowLife::settle() {
    // One step at a time: an event may itself change what is wanted.
    while (told_ != wanted()) {
        if (told_ < wanted()) {
            const bool leaving = told_ == Sight::Active;
            told_ = leaving ? Sight::Inactive : Sight::Hidden;
            leaving ? events_.resignActive() : events_.enterBackground();
        } else {
            const bool waking = told_ == Sight::Hidden;
            told_ = waking ? Sight::Inactive : Sight::Active;
            waking ? events_.enterForeground() : events_.becomeActive();
        }
    }
}

} // namespace lumbra

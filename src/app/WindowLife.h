#pragma once

#include <functional>
#include <utility>

namespace lumbra {

/// Turns what becomes of a front end's window into the application's life events, each sent once a change,
/// leaving and returning in the platform's order. Starts active. Main thread only.
class WindowLife {
public:
    /// Where the events go.
    struct Events {
        std::function<void()> resignActive;
        std::function<void()> enterBackground;
        std::function<void()> enterForeground;
        std::function<void()> becomeActive;
    };
    /// How far the window is from a person.
    enum class Sight {
        Active,   ///< in sight; on a desktop also without the focus
        Inactive, ///< in sight under something of the system's, as only phones have it
        Hidden,   ///< hidden, minimised or suspended
    };

    explicit WindowLife(Events events) : events_(std::move(events)) {}

    void setWindow(Sight sight);
    /// The settings screen is outside the application: opening it is leaving.
    void setSettingsOpen(bool open);

private:
    Sight wanted() const;
    void settle();

    Events events_;
    Sight window_ = Sight::Active;
    bool settingsOpen_ = false;
    Sight told_ = Sight::Active;
};

} // namespace lumbra

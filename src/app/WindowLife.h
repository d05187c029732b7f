#pragma once

#include <functional>
#include <utility>

namespace lumbra {

/// Maps the visibility of a front end's window to the application's lifecycle events. Each event is sent once
/// a change, in the platform's order for leaving and returning. Starts active. Main thread only.
class WindowLife {
public:
    /// The receivers of the events.
    struct Events {
        std::function<void()> resignActive;
        std::function<void()> enterBackground;
        std::function<void()> enterForeground;
        std::function<void()> becomeActive;
    };
    /// How visible the window is.
    enum class Visibility {
        Active,   ///< visible; on a desktop also without the focus
        Inactive, ///< covered by a system overlay; on phones only
        Hidden,   ///< hidden, minimised or suspended
    };

    explicit WindowLife(Events events) : events_(std::move(events)) {}

    void setVisibility(Visibility visibility);
    /// The settings screen counts as outside the application: opening it hides the window.
    void setSettingsOpen(bool open);

private:
    Visibility wanted() const;
    void settle();

    Events events_;
    Visibility visibility_ = Visibility::Active;
    bool settingsOpen_ = false;
    Visibility announced_ = Visibility::Active;
};

} // namespace lumbra

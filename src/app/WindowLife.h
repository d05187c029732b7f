#pragma once

#include "app/Application.h"

namespace lumbra {

/// Makes the application follow its window: sends it the lifecycle events for leaving and returning, each once a
/// change, in the platform's order. Starts visible. Main thread only.
class WindowLife {
public:
    /// `application` outlives this object.
    explicit WindowLife(Application& application) : application_(application) {}

    /// A window without the focus is visible; one that is hidden, minimised or suspended is not.
    void setVisible(bool visible);
    /// The settings screen counts as outside the application: opening it hides the window.
    void setSettingsOpen(bool open);

private:
    void settle();

    Application& application_;
    bool visible_ = true;
    bool settingsOpen_ = false;
    bool present_ = true; ///< as the application was last told
};

} // namespace lumbra

#pragma once

#include "app/Application.h"
#include "console/Report.h"
#include "toolkit/Signal.h"

#include <vector>

namespace lumbra {

/// Reports what happens in the application for as long as it lives: the screen on show, what can be seen to
/// change on it, alerts and the link. Main thread only.
class EventReporter {
public:
    /// Made before the application is launched, so that it misses nothing. Both outlive the reporter.
    EventReporter(Application& application, Report& report);

private:
    void screenChanged();

    Application& application_;
    Report& report_;
    LinkState link_;
    Subscription screens_;
    Subscription alerts_;
    Subscription links_;
    std::vector<Subscription> controls_; ///< of the screen on show
};

} // namespace lumbra

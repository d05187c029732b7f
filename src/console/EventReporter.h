#pragma once

#include "app/Application.h"
#include "console/DescriptorOutput.h"
#include "console/Printer.h"
#include "toolkit/Signal.h"

#include <cstddef>
#include <vector>

namespace lumbra::console {

/// Prints what happens in the application for as long as it lives: the screen on show, visible changes of its controls,
/// alerts and the link. While the output's reader is behind, changes of controls are gathered, and the newest state of
/// each follows once the reader has caught up. Main thread only.
class EventReporter {
public:
    /// Made before the application is launched, so that it misses nothing. All three outlive the reporter.
    EventReporter(Application& application, Printer& printer, DescriptorOutput& output);

    /// Prints what is gathered, whatever the reader does.
    void printGathered();

private:
    void screenChanged();
    void controlChanged(std::size_t index);

    Application& application_;
    Printer& printer_;
    DescriptorOutput& output_;
    LinkState link_;
    const View* view_ = nullptr; ///< the one on show
    std::vector<std::size_t>
        gathered_; ///< indices of its items, each once, in the order of their first change
    Subscription screens_;
    Subscription alerts_;
    Subscription links_;
    std::vector<Subscription> controls_; ///< of the view
};

} // namespace lumbra::console

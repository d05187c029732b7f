#pragma once

#include "app/Application.h"
#include "script/Output.h"
#include "script/Printer.h"
#include "toolkit/Signal.h"

#include <cstddef>
#include <vector>

namespace lumbra::script {

/// Prints the events of the application: the current screen, visible changes of its controls and, if wanted,
/// of its items, alerts, the link and the screen's status. While the reader of the output is behind, changes
/// of controls and items are collected; once it has caught up, the latest state of each follows. Main thread
/// only.
class EventReporter {
public:
    /// Create it before the application is launched, so that it misses no event. All three outlive the
    /// reporter.
    EventReporter(Application& application, Printer& printer, Output& output);

    /// Begins or ends the events of items.
    void watchItems(bool watches);
    /// Prints the collected changes, even if the reader is behind.
    void printGathered();

private:
    void screenChanged();
    void controlChanged(std::size_t index);
    void followItems();
    void rowsChanged(std::size_t begin, std::size_t end);

    Application& application_;
    Printer& printer_;
    Output& output_;
    LinkState link_;
    const View* view_ = nullptr; ///< of the current screen
    /// Indices of changed items of the view, in the order of their first change.
    std::vector<std::size_t> gathered_;
    bool watchesItems_ = false;
    const ItemList* list_ = nullptr; ///< of the current screen; null unless watched
    std::vector<ItemRow> items_;     ///< as last printed, or as they were when the watch began
    Subscription screens_;
    Subscription alerts_;
    Subscription links_;
    Subscription statuses_;
    Subscription caughtUp_;
    Subscription itemChange_;
    std::vector<Subscription> controls_; ///< of the view
};

} // namespace lumbra::script

#pragma once

#include "app/Application.h"
#include "platform/Lifetime.h"
#include "script/Output.h"
#include "script/Printer.h"
#include "toolkit/Signal.h"

#include <cstddef>
#include <vector>

namespace lumbra::script {

/// Prints the events of the application: the current screen, visible changes of its controls and, if wanted,
/// of its items, alerts, the link and the screen's status. Main thread only.
///
/// Changes of controls and items are gathered: the newest state of each is printed once a turn of the main loop,
/// and before any other event and any reply that follows them. While the reader of the output is behind, all but
/// screens and alerts is gathered until it has caught up.
class EventReporter {
public:
    /// Create it before the application is launched, so that it misses no event. All three outlive the
    /// reporter.
    EventReporter(Application& application, Printer& printer, Output& output);

    /// Begins or ends the events of items.
    void watchItems(bool watches);
    /// Prints what is gathered, unless the reader is behind.
    void printInOrder();
    /// Prints what is gathered, even if the reader is behind.
    void printGathered();

private:
    void screenChanged();
    void controlChanged(std::size_t index);
    void followItems();
    void printItems();
    void linkChanged();
    void statusChanged();
    void printLater();

    Application& application_;
    Printer& printer_;
    Output& output_;
    LinkState link_;             ///< as last seen
    const View* view_ = nullptr; ///< of the current screen
    bool watchesItems_ = false;
    const ItemList* list_ = nullptr; ///< of the current screen; null unless watched
    std::vector<ItemRow> items_;     ///< as last printed, or as they were when the watch began

    // What is gathered.
    std::vector<std::size_t> changed_; ///< indices of items of the view, in the order of their first change
    bool itemsChanged_ = false;
    bool linkChanged_ = false;
    bool statusChanged_ = false;
    bool scheduled_ = false; ///< it is printed at the end of this turn

    Subscription screens_;
    Subscription alerts_;
    Subscription withdrawals_;
    Subscription links_;
    Subscription statuses_;
    Subscription caughtUp_;
    Subscription itemChange_;
    std::vector<Subscription> controls_; ///< of the view, and of the hands on them
    Lifetime life_;
};

} // namespace lumbra::script

#pragma once

#include "app/Hand.h"
#include "link/ServerConnection.h"
#include "toolkit/Control.h"
#include "toolkit/ItemList.h"
#include "toolkit/Picker.h"
#include "toolkit/Signal.h"
#include "toolkit/Slider.h"
#include "toolkit/TabBarController.h"
#include "toolkit/View.h"

#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace lumbra {

/// The hands on the sliders of all screens and rows, one for each slider, and what can be moved at all.
///
/// Hands are taken off when what they hold may have become something else: those on a screen's sliders when
/// another item is selected or the selected one has another name, one on a row's slider when its item has another
/// name or row, and all when the tabs or the screen on show change, or the link is lost. Main thread only.
class Hands {
public:
    /// All outlive this object. `tabs` holds all screens that there will ever be.
    Hands(TabBarController& tabs, ServerConnection& link, MainQueue& queue);
    Hands(const Hands&) = delete;
    Hands& operator=(const Hands&) = delete;

    /// True while what sends a command can't be operated: the link is not open, and the command would be lost.
    bool isLocked() const { return !link_.isConnected(); }

    /// The hand on a slider that sends commands. It lives as long as this object.
    Hand& on(const std::shared_ptr<Slider>& slider);
    /// The same, or null if there has been no hand on the slider.
    Hand* find(const Control& slider);

    /// Takes all hands off: what was under them has moved or is out of sight.
    void cancel();

    /// Calls `observer` when hands have been taken off, also if there were none: a question about what is on show
    /// may now be about something else. `view` is the screen that this concerns, or null for all.
    Subscription onCancel(std::function<void(const View* view)> observer) {
        return cancelled_.subscribe(std::move(observer));
    }

private:
    /// Where a row's slider was when it was taken hold of.
    struct Place {
        std::size_t row;
        std::string name;

        bool operator==(const Place&) const = default;
    };
    struct Entry {
        std::unique_ptr<Hand> hand;
        std::optional<Place> place; ///< only while the slider of a row is held
        Subscription subscription;
    };

    void watchItem(const View& view, Picker& picker);
    void cancel(const View& view);
    std::optional<Place> placeOf(const Control& slider) const;
    void rowsChanged();

    ServerConnection& link_;
    MainQueue& queue_;
    std::vector<const ItemList*> lists_;
    std::map<const Control*, Entry> hands_;
    Signal<const View*> cancelled_;
    std::vector<Subscription> subscriptions_;
};

} // namespace lumbra

#pragma once

#include "link/ServerConnection.h"
#include "toolkit/Alert.h"
#include "toolkit/Signal.h"
#include "toolkit/Text.h"

#include <functional>
#include <optional>
#include <utility>

namespace lumbra {

/// The alert as a person is told of it, without being held up: once for each failure. A failure lasts until the link
/// is open or the user connects, however often the application tries and fails meanwhile, as each screen does that
/// appears. Nobody is told where the application connects by itself. The alert itself is not changed by any of this.
/// Main thread only.
class Notice {
public:
    /// Both outlive this object. A quiet one never shows anything.
    Notice(AlertPresenter& alerts, ServerConnection& link, bool quiet);
    Notice(const Notice&) = delete;
    Notice& operator=(const Notice&) = delete;

    /// The alert that the user is to see, or null.
    const Alert* shown() const { return isDue_ && alerts_.shown() ? &*alerts_.shown() : nullptr; }
    /// The user has seen it: presses its button. Does nothing if none is shown.
    void dismiss();
    /// The user connects: what fails next is a new failure.
    void userConnects() { seen_.reset(); }

    /// Calls `observer` each time the alert may have changed.
    Subscription onChange(std::function<void()> observer) { return changed_.subscribe(std::move(observer)); }

private:
    void alertChanged();
    void linkChanged();

    AlertPresenter& alerts_;
    ServerConnection& link_;
    bool quiet_;
    bool isDue_ = false;
    bool isOpen_ = false;
    std::optional<Text> seen_; ///< the message of this failure that the user has seen
    Signal<> changed_;
    Subscription alertChange_;
    Subscription linkChange_;
};

} // namespace lumbra

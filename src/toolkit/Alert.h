#pragma once

#include "toolkit/Signal.h"
#include "toolkit/Text.h"

#include <functional>
#include <optional>
#include <utility>

namespace lumbra {

/// A message with one button, whose only effect is to close it.
struct Alert {
    Text title;
    Text message;
    Text button;
};

/// Holds the alert that is shown. Presenting another one replaces it. Main thread only.
class AlertPresenter {
public:
    const std::optional<Alert>& shown() const { return shown_; }

    /// While muted, `present` does nothing.
    void setMuted(bool muted) { muted_ = muted; }

    void present(Alert alert) {
        if (muted_)
            return;
        shown_ = std::move(alert);
        changed_.emit();
    }
    /// The program closes the alert, which is no longer true.
    void withdraw() {
        if (dismissByUser())
            withdrawn_.emit();
    }
    /// The user presses the button of the alert. False if none is shown.
    bool dismissByUser() {
        if (!shown_)
            return false;
        shown_.reset();
        changed_.emit();
        return true;
    }

    /// Calls `observer` each time an alert is presented, dismissed or withdrawn.
    Subscription onChange(std::function<void()> observer) { return changed_.subscribe(std::move(observer)); }
    /// Calls `observer` each time an alert that was shown has been withdrawn.
    Subscription onWithdrawal(std::function<void()> observer) {
        return withdrawn_.subscribe(std::move(observer));
    }

private:
    std::optional<Alert> shown_;
    bool muted_ = false;
    Signal<> changed_;
    Signal<> withdrawn_;
};

} // namespace lumbra

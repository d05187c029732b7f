#pragma once

#include "toolkit/Control.h"

#include <string>
#include <utility>

namespace lumbra {

/// A button with a title (UTF-8).
class Button final : public Control {
public:
    static constexpr Kind KIND = Kind::Button;

    explicit Button(std::string title) : Control(KIND), title_(std::move(title)) {}

    const std::string& title() const { return title_; }

    /// The user presses the button: one press event. Returns false and does nothing while disabled.
    bool pressByUser() {
        if (!isEnabled())
            return false;
        pressed.send(*this);
        return true;
    }

    TargetAction<Button> pressed;

private:
    std::string title_;
};

} // namespace lumbra

#pragma once

#include "toolkit/Button.h"
#include "touch/ControlAdapter.h"

#include <QtQml/qqmlregistration.h>

namespace lumbra {

/// Exposes a button to QML. Its title is its caption.
class ButtonAdapter final : public lumbra::ControlAdapter {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("a screen gives it")

public:
    ButtonAdapter(std::shared_ptr<Button> control, const std::string& /*caption*/, RefreshQueue& queue,
                  QObject* parent)
        : ControlAdapter(control, control->title(), queue, parent), control_(std::move(control)) {}

    /// The user presses the button. False if it is disabled.
    Q_INVOKABLE bool press() { return isEnabled() && control_->pressByUser(); }

private:
    std::shared_ptr<Button> control_;
};

} // namespace lumbra

#pragma once

#include "toolkit/Switch.h"
#include "touch/ControlAdapter.h"

#include <QtQml/qqmlregistration.h>

namespace lumbra {

/// Exposes a switch to QML.
class SwitchAdapter final : public lumbra::ControlAdapter {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("a screen gives it")
    Q_PROPERTY(bool on READ isOn NOTIFY changed)

public:
    SwitchAdapter(std::shared_ptr<Switch> control, const std::string& caption, RefreshQueue& queue,
                  QObject* parent)
        : ControlAdapter(control, caption, queue, parent), control_(std::move(control)) {}

    bool isOn() const { return control_->isOn(); }
    /// The user flips the switch, unless it is disabled.
    Q_INVOKABLE void flip(bool on) {
        if (isEnabled())
            control_->flipByUser(on);
    }

private:
    std::shared_ptr<Switch> control_;
};

} // namespace lumbra

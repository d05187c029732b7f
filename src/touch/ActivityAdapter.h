#pragma once

#include "toolkit/ActivityIndicator.h"
#include "touch/ControlAdapter.h"

#include <QtQml/qqmlregistration.h>

namespace lumbra {

/// Exposes an activity indicator to QML.
class ActivityAdapter final : public lumbra::ControlAdapter {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("a screen gives it")
    Q_PROPERTY(bool animating READ isAnimating NOTIFY changed)

public:
    ActivityAdapter(std::shared_ptr<ActivityIndicator> control, const std::string& caption,
                    RefreshQueue& queue, QObject* parent)
        : ControlAdapter(control, caption, queue, parent), control_(std::move(control)) {}

    bool isAnimating() const { return control_->isAnimating(); }

private:
    std::shared_ptr<ActivityIndicator> control_;
};

} // namespace lumbra

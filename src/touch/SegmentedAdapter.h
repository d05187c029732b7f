#pragma once

#include "toolkit/SegmentedControl.h"
#include "touch/Captions.h"
#include "touch/ControlAdapter.h"

#include <QStringList>
#include <QtQml/qqmlregistration.h>

namespace lumbra {

/// Exposes a segmented control to QML.
class SegmentedAdapter final : public lumbra::ControlAdapter {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("a screen gives it")
    Q_PROPERTY(QStringList segments READ segments CONSTANT)
    Q_PROPERTY(int selected READ selected NOTIFY changed)
    Q_PROPERTY(int former READ former NOTIFY changed)

public:
    SegmentedAdapter(std::shared_ptr<SegmentedControl> control, const std::string& caption,
                     RefreshQueue& queue, QObject* parent)
        : ControlAdapter(control, caption, queue, parent), control_(std::move(control)) {
        for (const auto& segment : control_->segments())
            segments_ << translatedText(segment);
    }

    QStringList segments() const { return segments_; }
    int selected() const { return control_->selected(); }
    /// The segment that a tap on the selected one brings back; -1 if there is none.
    int former() const { return control_->former().value_or(-1); }
    /// The user taps a segment, 0-based, unless the control is disabled.
    Q_INVOKABLE void tap(int segment) {
        if (isEnabled())
            control_->tapByUser(segment == selected() ? control_->former().value_or(segment) : segment);
    }

private:
    std::shared_ptr<SegmentedControl> control_;
    QStringList segments_;
};

} // namespace lumbra

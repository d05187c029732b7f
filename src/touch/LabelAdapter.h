#pragma once

#include "toolkit/Label.h"
#include "touch/Captions.h"
#include "touch/ControlAdapter.h"

#include <QtQml/qqmlregistration.h>

namespace lumbra {

/// Exposes a label to QML. One that is not known shows no value.
class LabelAdapter final : public lumbra::ControlAdapter {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("a screen gives it")
    Q_PROPERTY(QString text READ text NOTIFY changed)
    Q_PROPERTY(QString spoken READ spoken NOTIFY changed)

public:
    LabelAdapter(std::shared_ptr<Label> control, const std::string& caption, RefreshQueue& queue,
                 QObject* parent)
        : ControlAdapter(control, caption, queue, parent), control_(std::move(control)) {}

    /// Plain text; must not be interpreted as markup.
    QString text() const { return isKnown() ? shownText(*control_) : unknownText(); }
    /// The text for a screen reader: "50 percent".
    QString spoken() const { return isKnown() ? spokenText(*control_) : spokenUnknown(); }

private:
    std::shared_ptr<Label> control_;
};

} // namespace lumbra

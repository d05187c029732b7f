#pragma once

#include "toolkit/Label.h"
#include "touch/BandText.h"
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
    Q_PROPERTY(QString exact READ exact NOTIFY changed)
    Q_PROPERTY(bool isReading READ isReading NOTIFY changed)

public:
    LabelAdapter(std::shared_ptr<Label> control, const std::string& caption, RefreshQueue& queue,
                 QObject* parent)
        : ControlAdapter(control, caption, queue, parent),
          control_(std::move(control)),
          exactChange_(control_->onExactChange([this] { mark(); })) {}

    /// Plain text; must not be interpreted as markup.
    QString text() const { return isKnown() ? shownText(*control_) : unknownText(); }
    /// The exact value of a coarse reading, if it differs from the text: "3.15 kHz". Else empty.
    QString exact() const {
        if (!isKnown() || !control_->exact())
            return {};
        const auto exact = BandText::frequency(control_->exact()->number);
        return exact == text() ? QString() : exact;
    }
    /// Whether the text is a value, or says so far that there is none.
    bool isReading() const { return !isKnown() || control_->reading(); }
    /// The text for a screen reader: "50 percent".
    QString spoken() const { return isKnown() ? spokenText(*control_) : spokenUnknown(); }

private:
    std::shared_ptr<Label> control_;
    Subscription exactChange_;
};

} // namespace lumbra

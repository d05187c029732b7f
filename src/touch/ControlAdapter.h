#pragma once

#include "toolkit/Control.h"
#include "touch/Adapter.h"
#include "touch/Captions.h"

#include <QString>

#include <memory>
#include <string>
#include <utility>

namespace lumbra {

/// What the adapters of all controls share: the caption in the person's language and whether a hand can move
/// the control.
class ControlAdapter : public lumbra::Adapter {
    Q_OBJECT
    QML_ANONYMOUS
    Q_PROPERTY(QString caption READ caption CONSTANT)
    Q_PROPERTY(bool enabled READ isEnabled NOTIFY changed)

public:
    QString caption() const { return translatedText(caption_); }
    /// Its name as a screen reader says it: what it is, and of what. `where` may be empty.
    Q_INVOKABLE QString spokenName(const QString& where) const { return lumbra::spokenName(where, caption_); }
    bool isEnabled() const { return watched_->isEnabled(); }

protected:
    ControlAdapter(std::shared_ptr<Control> control, std::string caption, RefreshQueue& queue,
                   QObject* parent)
        : Adapter(queue, parent),
          watched_(std::move(control)),
          caption_(std::move(caption)),
          subscription_(watched_->onChange([this] { mark(); })) {}

private:
    std::shared_ptr<Control> watched_;
    std::string caption_; ///< English
    Subscription subscription_;
};

} // namespace lumbra

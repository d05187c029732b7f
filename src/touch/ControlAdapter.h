#pragma once

#include "toolkit/Control.h"
#include "touch/Adapter.h"
#include "touch/Captions.h"

#include <QString>

#include <memory>
#include <string>
#include <utility>

namespace lumbra {

/// The common part of the adapters of controls: the caption in the user's language, whether the user can operate
/// the control, and whether the unit has reported what it shows.
class ControlAdapter : public lumbra::Adapter {
    Q_OBJECT
    QML_ANONYMOUS
    Q_PROPERTY(QString caption READ caption CONSTANT)
    Q_PROPERTY(bool enabled READ isEnabled NOTIFY changed)
    Q_PROPERTY(bool known READ isKnown NOTIFY changed)

public:
    QString caption() const { return translatedText(caption_); }
    /// Its name for a screen reader: the item `where`, which may be empty, and the caption.
    Q_INVOKABLE QString spokenName(const QString& where) const { return lumbra::spokenName(where, caption_); }
    bool isEnabled() const { return !locked_ && watched_->isEnabled(); }
    /// True also for a control that shows no value of the unit.
    bool isKnown() const { return watched_->known().value_or(true); }
    /// A locked control can't be operated: its command would be lost.
    void setLocked(bool locked) {
        if (std::exchange(locked_, locked) != locked)
            mark();
    }

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
    bool locked_ = false;
    Subscription subscription_;
};

} // namespace lumbra

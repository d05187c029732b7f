#include "touch/SliderAdapter.h"

#include <QCoreApplication>

#include <utility>

namespace lumbra {

SliderAdapter::SliderAdapter(std::shared_ptr<Slider> control, Hand& hand, const std::string& caption,
                             RefreshQueue& queue, QObject* parent)
    : ControlAdapter(control, caption, queue, parent),
      control_(std::move(control)),
      hand_(hand),
      subscription_(hand.onChange([this] { mark(); })) {}

QString SliderAdapter::reading() const {
    const auto reading = control_->readingOf(hand_.shown());
    if (!reading)
        return {};
    //: %1 is a volume: the unit allows no more
    return hand_.isAtLimit() ? QCoreApplication::translate("System", "Maximum %1").arg(shownText(*reading))
                             : shownText(*reading);
}

bool SliderAdapter::moveToPosition(qreal position) {
    return moveToValue(valueAt(position));
}

bool SliderAdapter::moveBy(qreal difference) {
    return moveToValue(value() + difference);
}

bool SliderAdapter::moveToValue(qreal value) {
    const bool moved = hand_.moveTo(static_cast<float>(value));
    Q_EMIT changed();
    return moved;
}

} // namespace lumbra

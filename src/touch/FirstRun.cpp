#include "touch/FirstRun.h"

#include "app/AddressHint.h"
#include "touch/Captions.h"

#include <QQuickWindow>

#include <utility>

namespace lumbra {

FirstRun::FirstRun(Answered answered) : answered_(std::move(answered)) {}

bool FirstRun::show(bool fullscreen) {
    window_ = std::make_unique<QmlWindow>(QStringLiteral("FirstRunPage.qml"), QStringLiteral("first"), *this);
    if (!window_->window())
        return false;
    window_->show(fullscreen);
    return true;
}

QRect FirstRun::geometry() const {
    return window_->window()->geometry();
}

int FirstRun::minimumUnit() {
    return static_cast<int>(MIN_UNIT_NUMBER);
}

int FirstRun::maximumUnit() {
    return static_cast<int>(MAX_UNIT_NUMBER);
}

QString FirstRun::connectTo(const QString& address, int unit) {
    const auto hint = address == told_ ? std::nullopt : addressHint(address.toStdString());
    told_ = address;
    if (hint)
        return translatedText(*hint);
    answer(UnitPlace{address.toStdString(), unit});
    return {};
}

void FirstRun::tryDemo() {
    answer(std::nullopt);
}

void FirstRun::answer(const std::optional<UnitPlace>& unit) {
    // The answer may destroy the window, which must not happen inside a press of its button.
    QMetaObject::invokeMethod(
        this,
        [this, unit] {
            if (const auto answered = std::exchange(answered_, nullptr))
                answered(unit);
        },
        Qt::QueuedConnection);
}

} // namespace lumbra

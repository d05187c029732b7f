#pragma once

#include "app/Settings.h"
#include "touch/QmlWindow.h"

#include <QObject>
#include <QRect>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <functional>
#include <memory>
#include <optional>

namespace lumbra {

/// The page that asks for the unit before the first launch, in a window of its own. Main thread only.
class FirstRun final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("the front end gives it")
    Q_PROPERTY(int minimumUnit READ minimumUnit CONSTANT)
    Q_PROPERTY(int maximumUnit READ maximumUnit CONSTANT)

public:
    /// `answered` is called once, in a turn of its own, with the unit that the user has given, or with nothing
    /// if the user wants the demo. It is not called if the window is closed.
    using Answered = std::function<void(const std::optional<UnitPlace>& unit)>;
    explicit FirstRun(Answered answered);

    /// Shows the page. False, with the reason on standard error, if there can be no window.
    bool show(bool fullscreen);
    /// Where the window is on the screen.
    QRect geometry() const;

    static int minimumUnit();
    static int maximumUnit();
    /// Answers with an address and a unit's number. An address that can't be one is told first, in a sentence, and nothing
    /// is answered; else the text is empty. Any text is accepted as an address when it is given again.
    Q_INVOKABLE QString connectTo(const QString& address, int unit);
    Q_INVOKABLE void tryDemo();

private:
    void answer(const std::optional<UnitPlace>& unit);

    Answered answered_;
    QString told_; ///< the address that was not accepted
    std::unique_ptr<QmlWindow> window_;
};

} // namespace lumbra

#pragma once

#include "app/Application.h"
#include "toolkit/ViewController.h"
#include "touch/ActivityAdapter.h"
#include "touch/ButtonAdapter.h"
#include "touch/ItemListAdapter.h"
#include "touch/LabelAdapter.h"
#include "touch/PickerAdapter.h"
#include "touch/SegmentedAdapter.h"
#include "touch/SliderAdapter.h"
#include "touch/SwitchAdapter.h"

#include <QHash>
#include <QObject>
#include <QtQml/qqmlregistration.h>

#include <memory>

namespace lumbra {

/// Exposes a screen to QML: its names, and its controls by their names in the layout. The adapter of a
/// control is created on the first request and lives as long as this object. A request for a control that the
/// layout lacks, or that is of another kind, returns null and logs a warning. Main thread only.
class ScreenAdapter final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("the application gives it")
    Q_PROPERTY(QString name READ name CONSTANT)
    Q_PROPERTY(QString title READ title CONSTANT)
    Q_PROPERTY(bool current READ isCurrent NOTIFY statusChanged)
    Q_PROPERTY(lumbra::ItemListAdapter* items READ items CONSTANT)

public:
    /// `application` and `queue` outlive the adapter.
    ScreenAdapter(std::shared_ptr<ViewController> controller, Application& application, RefreshQueue& queue,
                  QObject* parent);

    /// The short name ("zone").
    QString name() const;
    /// The title in the user's language ("Zones").
    QString title() const;

    /// Whether the values shown are what the unit has reported. Meaningful for the current screen.
    bool isCurrent() const { return application_.status().status() == ScreenStatus::Current; }
    /// The rows of the item picker; null on a screen without items.
    ItemListAdapter* items();

    Q_INVOKABLE lumbra::PickerAdapter* picker(const QString& name);
    Q_INVOKABLE lumbra::SliderAdapter* slider(const QString& name);
    Q_INVOKABLE lumbra::SwitchAdapter* onOff(const QString& name);
    Q_INVOKABLE lumbra::SegmentedAdapter* segmented(const QString& name);
    Q_INVOKABLE lumbra::LabelAdapter* label(const QString& name);
    Q_INVOKABLE lumbra::ActivityAdapter* activity(const QString& name);
    Q_INVOKABLE lumbra::ButtonAdapter* button(const QString& name);

    const std::shared_ptr<ViewController>& controller() const { return controller_; }

Q_SIGNALS:
    void statusChanged();
    /// Hands have been taken off: what a question was about may now be something else.
    void handsOff();

private:
    void followStatus();
    template <class AdapterType, class ControlType>
    AdapterType* adapter(const QString& name);

    std::shared_ptr<ViewController> controller_;
    Application& application_;
    RefreshQueue& queue_;
    QHash<QString, ControlAdapter*> adapters_;
    ItemListAdapter* items_ = nullptr;
    Subscription statusChange_;
    Subscription handsOff_;
};

} // namespace lumbra

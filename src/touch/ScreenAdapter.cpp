#include "touch/ScreenAdapter.h"

#include "touch/Captions.h"

#include <QDebug>

#include <algorithm>
#include <utility>

namespace lumbra {

ScreenAdapter::ScreenAdapter(std::shared_ptr<ViewController> controller, Application& application,
                             RefreshQueue& queue, QObject* parent)
    : QObject(parent),
      controller_(std::move(controller)),
      application_(application),
      queue_(queue),
      statusChange_(application.status().onChange([this] { followStatus(); })) {}

void ScreenAdapter::followStatus() {
    if (isOffline())
        cancelGrabs();
    for (auto* const adapter : sending_)
        adapter->setLocked(isOffline());
    Q_EMIT statusChanged();
}

ItemListAdapter* ScreenAdapter::items() {
    if (const auto* const list = dynamic_cast<const ItemList*>(controller_.get()); list && !items_)
        items_ = new ItemListAdapter(*list, queue_, this);
    return items_;
}

QString ScreenAdapter::name() const {
    return QString::fromStdString(controller_->view().name());
}

QString ScreenAdapter::title() const {
    return translatedText(controller_->view().title());
}

template <class AdapterType, class ControlType>
AdapterType* ScreenAdapter::adapter(const QString& name) {
    if (auto* const known = qobject_cast<AdapterType*>(adapters_.value(name)))
        return known;
    const auto& items = controller_->view().items();
    const auto item = std::find_if(items.begin(), items.end(),
                                   [wanted = name.toStdString()](const auto& i) { return i.name == wanted; });
    const auto control =
        item == items.end() ? nullptr : std::dynamic_pointer_cast<ControlType>(item->control);
    if (!control) {
        qWarning() << "The" << this->name() << "screen has no such control:" << name;
        return nullptr;
    }
    auto* const made = new AdapterType(control, item->caption, queue_, this);
    adapters_.insert(name, made);
    if (item->sends) {
        sending_ << made;
        made->setLocked(isOffline());
    }
    return made;
}

PickerAdapter* ScreenAdapter::picker(const QString& name) {
    return adapter<PickerAdapter, Picker>(name);
}

SliderAdapter* ScreenAdapter::slider(const QString& name) {
    return adapter<SliderAdapter, Slider>(name);
}

SwitchAdapter* ScreenAdapter::onOff(const QString& name) {
    return adapter<SwitchAdapter, Switch>(name);
}

SegmentedAdapter* ScreenAdapter::segmented(const QString& name) {
    return adapter<SegmentedAdapter, SegmentedControl>(name);
}

LabelAdapter* ScreenAdapter::label(const QString& name) {
    return adapter<LabelAdapter, Label>(name);
}

ActivityAdapter* ScreenAdapter::activity(const QString& name) {
    return adapter<ActivityAdapter, ActivityIndicator>(name);
}

ButtonAdapter* ScreenAdapter::button(const QString& name) {
    return adapter<ButtonAdapter, Button>(name);
}

void ScreenAdapter::setItemPicker(const QString& name) {
    const auto control = std::dynamic_pointer_cast<Picker>(controller_->view().find(name.toStdString()));
    if (!control)
        return;
    const auto item = [picker = control.get()] {
        return std::pair(picker->selected(), picker->selectedText());
    };
    itemChange_ = control->onChange([this, item, known = item()]() mutable {
        if (auto now = item(); now != known) {
            known = std::move(now);
            cancelGrabs();
        }
    });
}

void ScreenAdapter::cancelGrabs() {
    for (auto* const adapter : adapters_)
        if (auto* const slider = qobject_cast<SliderAdapter*>(adapter))
            slider->cancelGrabs();
    Q_EMIT handsOff();
}

} // namespace lumbra

#include "touch/ScreenAdapter.h"

#include "touch/Captions.h"

#include <QDebug>

#include <algorithm>
#include <type_traits>
#include <utility>

namespace lumbra {

ScreenAdapter::ScreenAdapter(std::shared_ptr<ViewController> controller, Application& application,
                             RefreshQueue& queue, QObject* parent)
    : QObject(parent),
      controller_(std::move(controller)),
      application_(application),
      queue_(queue),
      statusChange_(application.status().onChange([this] { followStatus(); })),
      handsOff_(application.hands().onCancel([this](const View* view) {
          if (!view || view == &controller_->view())
              Q_EMIT handsOff();
      })) {}

void ScreenAdapter::followStatus() {
    for (const auto& item : controller_->view().items())
        if (auto* const adapter = adapters_.value(QString::fromStdString(item.name)))
            adapter->setLocked(application_.isLocked(item));
    Q_EMIT statusChanged();
}

ItemListAdapter* ScreenAdapter::items() {
    if (const auto* const list = dynamic_cast<const ItemList*>(controller_.get()); list && !items_)
        items_ = new ItemListAdapter(*list, controller_->view(), application_, queue_, this);
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
    AdapterType* made = nullptr;
    if constexpr (std::is_same_v<ControlType, Slider>)
        made = new AdapterType(control, application_.hands().on(control), item->caption, queue_, this);
    else
        made = new AdapterType(control, item->caption, queue_, this);
    made->setLocked(application_.isLocked(*item));
    adapters_.insert(name, made);
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

} // namespace lumbra

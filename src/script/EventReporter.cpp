#include "script/EventReporter.h"

#include <algorithm>
#include <utility>

namespace lumbra::script {

EventReporter::EventReporter(Application& application, Printer& printer, Output& output)
    : application_(application),
      printer_(printer),
      output_(output),
      link_(application.link().linkState()),
      screens_(application.tabs().onScreenChange([this] { screenChanged(); })),
      alerts_(application.alerts().onChange([this] {
          const auto& alert = application_.alerts().shown();
          if (!alert)
              return; // dismissed, or withdrawn
          printInOrder();
          printer_.alertAskedFor(*alert);
      })),
      withdrawals_(application.alerts().onWithdrawal([this] {
          printInOrder();
          printer_.alertWithdrawn();
      })),
      links_(application.link().onLinkChange([this] { linkChanged(); })),
      statuses_(application.status().onChange([this] { statusChanged(); })),
      caughtUp_(output.onCaughtUp([this] { printGathered(); })) {}

void EventReporter::screenChanged() {
    printGathered(); // which is of the screen that was on show
    printer_.screenChanged(application_.tabs());
    controls_.clear();
    view_ = &application_.tabs().selectedViewController()->view();
    for (std::size_t index = 0; index < view_->items().size(); ++index) {
        const auto& control = view_->items()[index].control;
        const auto changed = [this, index] { controlChanged(index); };
        controls_.push_back(control->onChange(changed));
        if (control->kind() == Slider::KIND)
            controls_.push_back(
                application_.hands().on(std::static_pointer_cast<Slider>(control)).onChange(changed));
    }
    followItems();
}

void EventReporter::watchItems(bool watches) {
    printGathered();
    watchesItems_ = watches;
    followItems();
}

void EventReporter::followItems() {
    itemChange_ = {};
    items_.clear();
    list_ = watchesItems_ ? application_.items() : nullptr;
    if (!list_)
        return;
    for (std::size_t row = 0; row < list_->rowCount(); ++row)
        items_.push_back(list_->row(row));
    itemChange_ = list_->onRowChange([this](auto) {
        itemsChanged_ = true;
        printLater();
    });
}

void EventReporter::controlChanged(std::size_t index) {
    if (std::find(changed_.begin(), changed_.end(), index) == changed_.end())
        changed_.push_back(index);
    printLater();
}

void EventReporter::linkChanged() {
    // This is also called when the address changes, which is no event.
    if (std::exchange(link_, application_.link().linkState()) == link_)
        return;
    linkChanged_ = true;
    printInOrder();
}

void EventReporter::statusChanged() {
    statusChanged_ = true;
    printInOrder();
}

void EventReporter::printLater() {
    if (scheduled_)
        return;
    scheduled_ = true;
    application_.queue().post(life_.guard([this] {
        scheduled_ = false;
        printInOrder();
    }));
}

void EventReporter::printInOrder() {
    if (!output_.isBehind())
        printGathered();
}

void EventReporter::printGathered() {
    for (const auto index : std::exchange(changed_, {})) {
        const auto& item = view_->items()[index];
        printer_.controlChanged(*view_, item, application_.hands().find(*item.control));
    }
    if (std::exchange(itemsChanged_, false) && list_)
        printItems();
    if (std::exchange(linkChanged_, false))
        printer_.linkChanged(application_.link().linkState());
    if (std::exchange(statusChanged_, false))
        printer_.statusChanged(application_.status().status());
}

void EventReporter::printItems() {
    items_.resize(list_->rowCount());
    for (std::size_t row = 0; row < items_.size(); ++row)
        if (auto item = list_->row(row); item != items_[row]) {
            printer_.itemChanged(*view_, row, item);
            items_[row] = std::move(item);
        }
}

} // namespace lumbra::script

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
          if (const auto& alert = application_.alerts().shown())
              printer_.alertAskedFor(*alert);
      })),
      links_(application.link().onLinkChange([this] {
          // This is also called when the address changes, which is no event.
          if (const auto link = application_.link().linkState(); link != link_)
              printer_.linkChanged(link_ = link);
      })),
      statuses_(
          application.status().onChange([this] { printer_.statusChanged(application_.status().status()); })),
      caughtUp_(output.onCaughtUp([this] { printGathered(); })) {}

void EventReporter::screenChanged() {
    printGathered();
    printer_.screenChanged(application_.tabs());
    controls_.clear();
    view_ = &application_.tabs().selectedViewController()->view();
    for (std::size_t index = 0; index < view_->items().size(); ++index)
        controls_.push_back(
            view_->items()[index].control->onChange([this, index] { controlChanged(index); }));
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
    itemChange_ = list_->onRowChange([this](std::optional<std::size_t> row) {
        if (!output_.isBehind())
            rowsChanged(row.value_or(0), row ? *row + 1 : list_->rowCount());
    });
}

void EventReporter::rowsChanged(std::size_t begin, std::size_t end) {
    items_.resize(list_->rowCount());
    for (std::size_t row = begin; row < end; ++row)
        if (auto item = list_->row(row); item != items_[row]) {
            printer_.itemChanged(*view_, row, item);
            items_[row] = std::move(item);
        }
}

void EventReporter::controlChanged(std::size_t index) {
    if (!output_.isBehind())
        printer_.controlChanged(*view_, view_->items()[index]);
    else if (std::find(gathered_.begin(), gathered_.end(), index) == gathered_.end())
        gathered_.push_back(index);
}

void EventReporter::printGathered() {
    for (const auto index : std::exchange(gathered_, {}))
        printer_.controlChanged(*view_, view_->items()[index]);
    if (list_)
        rowsChanged(0, list_->rowCount());
}

} // namespace lumbra::script

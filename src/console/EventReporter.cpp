#include "console/EventReporter.h"

#include <algorithm>
#include <utility>

namespace lumbra::console {

EventReporter::EventReporter(Application& application, Printer& printer, DescriptorOutput& output)
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
      })) {
    output_.onCaughtUp([this] { printGathered(); });
}

void EventReporter::screenChanged() {
    printGathered();
    printer_.screenChanged(application_.tabs());
    controls_.clear();
    view_ = &application_.tabs().selectedViewController()->view();
    for (std::size_t index = 0; index < view_->items().size(); ++index)
        controls_.push_back(
            view_->items()[index].control->onChange([this, index] { controlChanged(index); }));
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
}

} // namespace lumbra::console

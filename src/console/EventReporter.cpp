#include "console/EventReporter.h"

namespace lumbra {

EventReporter::EventReporter(Application& application, Report& report)
    : application_(application),
      report_(report),
      link_(application.link().linkState()),
      screens_(application.tabs().onScreenChange([this] { screenChanged(); })),
      alerts_(application.alerts().onChange([this] {
          if (const auto& alert = application_.alerts().shown())
              report_.alertAskedFor(*alert);
      })),
      links_(application.link().onLinkChange([this] {
          // The address changes too, which is no event.
          if (const auto link = application_.link().linkState(); link != link_)
              report_.linkChanged(link_ = link);
      })) {}

void EventReporter::screenChanged() {
    report_.screenChanged(application_.tabs());
    controls_.clear();
    const auto& view = application_.tabs().selectedViewController()->view();
    for (const auto& item : view.items())
        controls_.push_back(
            item.control->onChange([this, &view, &item] { report_.controlChanged(view, item); }));
}

} // namespace lumbra

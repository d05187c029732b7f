#include "screens/GroupViewController.h"

#include "screens/Readings.h"

#include <utility>

namespace lumbra {

GroupViewController::GroupViewController(const ScreenContext& context, std::shared_ptr<View> view)
    : ItemViewController(context, std::move(view), QUERY_NUMBER, ItemKind::Group, std::make_unique<Groups>(),
                         "groupPicker", percentOfVolume) {}

void GroupViewController::processCommand(std::string_view report) {
    dispatch(groups::parse, report, [this](const auto& typed) { handle(typed); });
}

} // namespace lumbra

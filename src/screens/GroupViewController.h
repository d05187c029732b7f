#pragma once

#include "model/Groups.h"
#include "protocol/GroupMessages.h"
#include "screens/ItemViewController.h"

namespace lumbra {

/// The Group screen: one of the unit's groups with its input, volume, mute and power. Main thread only.
class GroupViewController final : public ItemViewController {
public:
    static constexpr int QUERY_NUMBER = 4;

    GroupViewController(const ScreenContext& context, std::shared_ptr<View> view);

protected:
    void processCommand(std::string_view report) override;
};

} // namespace lumbra

#pragma once

#include "model/Groups.h"
#include "protocol/GroupMessages.h"
#include "screens/ItemViewController.h"

#include <cstdint>
#include <optional>

namespace lumbra {

/// The Group screen: one of the unit's groups with its input, volume, mute and power. Main thread only.
class GroupViewController final : public ItemViewController {
public:
    static constexpr int QUERY_NUMBER = 4;

    GroupViewController(const ScreenContext& context, std::shared_ptr<View> view);

    void viewDidLoad() override;
    void powerSwitchChange(Switch& sender);

protected:
    void processCommand(std::string_view report) override;
    void showItem() override;
    std::optional<bool> power(std::int64_t item) const override { return ofItem(group_.power, item); }

private:
    using ItemViewController::handle;
    void handle(const reports::Power& report);

    void showPower();

    Groups& group_;
    Outlet<Switch> powerSwitch_;
};

} // namespace lumbra

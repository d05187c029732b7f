#pragma once

#include "link/ScreenViewController.h"
#include "protocol/OverrideMessages.h"
#include "toolkit/Switch.h"

#include <array>
#include <cstddef>

namespace lumbra {

/// The Override screen: ten switches. Their positions are the only record of the overrides. Main thread only.
class OverrideViewController final : public ScreenViewController {
public:
    static constexpr int QUERY_NUMBER = 3;
    static constexpr std::size_t size = 10;

    OverrideViewController(const ScreenContext& context, std::shared_ptr<View> view);

    void viewDidLoad() override;
    void ovrSwitchChange(Switch& sender);

protected:
    void processCommand(std::string_view report) override;

private:
    using ScreenViewController::handle;
    void handle(const overrides::State& report);

    std::array<Outlet<Switch>, size> ovrSwitch_;
};

} // namespace lumbra

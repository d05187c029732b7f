#pragma once

#include "link/ScreenViewController.h"
#include "protocol/SceneMessages.h"
#include "toolkit/Button.h"
#include "toolkit/Picker.h"

#include <cstdint>
#include <string>
#include <vector>

namespace lumbra {

/// The Scene screen: picks one of ten scenes, recalls it, or stores the unit's current setting in it. Main
/// thread only.
class SceneViewController final : public ScreenViewController {
public:
    static constexpr int QUERY_NUMBER = 2;
    static constexpr std::int64_t size = 10;

    SceneViewController(const ScreenContext& context, std::shared_ptr<View> view);

    void viewDidLoad() override;

    void scenePick(Picker& sender);
    void loadScenePress(Button& sender);
    void saveScenePress(Button& sender);

protected:
    void processCommand(std::string_view report) override;

private:
    using ScreenViewController::handle;
    void handle(const reports::ItemName& report);

    Outlet<Picker> scenePicker_;
    Outlet<Button> loadSceneButton_;
    Outlet<Button> saveSceneButton_;
    std::vector<std::string> scenePickerData_; ///< empty until the view is loaded
    std::int64_t current_scene_ = 0;
};

} // namespace lumbra

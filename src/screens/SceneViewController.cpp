#include "screens/SceneViewController.h"

#include "model/HideLists.h"

#include <cstddef>
#include <utility>

namespace lumbra {

SceneViewController::SceneViewController(const ScreenContext& context, std::shared_ptr<View> view)
    : ScreenViewController(context, std::move(view), QUERY_NUMBER),
      scenePicker_(this->view().outlet<Picker>("scenePicker")),
      loadSceneButton_(this->view().outlet<Button>("loadSceneButton")),
      saveSceneButton_(this->view().outlet<Button>("saveSceneButton")) {}

void SceneViewController::viewDidLoad() {
    ScreenViewController::viewDidLoad();
    scenePickerData_ = defaultNames(size, "Scene");
    scenePicker_->setRows(scenePickerData_);
    const std::weak_ptr self = shared(this);
    scenePicker_->picked.set(self, &SceneViewController::scenePick);
    loadSceneButton_->pressed.set(self, &SceneViewController::loadScenePress);
    saveSceneButton_->pressed.set(self, &SceneViewController::saveScenePress);
}

void SceneViewController::scenePick(Picker& sender) {
    current_scene_ = sender.selected();
}

void SceneViewController::loadScenePress(Button&) {
    send(scenes::recall(current_scene_));
}

void SceneViewController::saveScenePress(Button&) {
    send(scenes::store(current_scene_));
}

void SceneViewController::processCommand(std::string_view report) {
    dispatch(scenes::parse, report, [this](const auto& typed) { handle(typed); });
}

void SceneViewController::handle(const reports::ItemName& report) {
    if (report.item < 0 || report.item >= static_cast<int>(scenePickerData_.size()))
        return;
    scenePickerData_[static_cast<std::size_t>(report.item)] = report.name.view();
    scenePicker_->setRows(scenePickerData_);
    scenePicker_->selectRow(static_cast<int>(current_scene_));
}

} // namespace lumbra

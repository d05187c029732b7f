#include "screens/SceneViewController.h"

#include "model/Defaults.h"

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
    scenePickerData_.resize(10);
    fillDefaultNames(scenePickerData_, "Scene");
    const auto self = shared(this);
    scenePicker_->setDelegate(self);
    scenePicker_->setDataSource(self);
    loadSceneButton_->pressed.set(std::weak_ptr(self), &SceneViewController::loadScenePress);
    saveSceneButton_->pressed.set(std::weak_ptr(self), &SceneViewController::saveScenePress);
}

int SceneViewController::numberOfRows(const Picker&) const {
    return static_cast<int>(scenePickerData_.size());
}

std::string_view SceneViewController::titleForRow(const Picker&, int row) const {
    return scenePickerData_.at(static_cast<std::size_t>(row));
}

AttributedText SceneViewController::attributedTitleForRow(const Picker& picker, int row) const {
    return {titleForRow(picker, row), Color::White};
}

void SceneViewController::didSelectRow(Picker&, int row) {
    current_scene_ = row;
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
    scenePicker_->reloadAllComponents();
    scenePicker_->selectRow(static_cast<int>(current_scene_));
}

void SceneViewController::handle(const reports::EndOfState&) {
    spinner().stopAnimating();
}

} // namespace lumbra

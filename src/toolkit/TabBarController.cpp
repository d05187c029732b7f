#include "toolkit/TabBarController.h"

#include <algorithm>
#include <utility>

namespace lumbra {

TabBarController::TabBarController() : ViewController(std::make_shared<View>(std::string(), std::string())) {}

void TabBarController::setViewControllers(std::vector<std::shared_ptr<ViewController>> controllers) {
    if (controllers == controllers_)
        return;
    controllers_ = std::move(controllers);
    selected_ = std::clamp(selected_, 0, std::max(0, static_cast<int>(controllers_.size()) - 1));
    showSelected();
}

std::shared_ptr<ViewController> TabBarController::selectedViewController() const {
    return has(selected_) ? controllers_[static_cast<std::size_t>(selected_)] : nullptr;
}

void TabBarController::setSelectedIndex(int index) {
    if (!has(index) || index == selected_)
        return;
    selected_ = index;
    showSelected();
}

bool TabBarController::selectByUser(int index) {
    if (!has(index))
        return false;
    setSelectedIndex(index);
    didSelectViewController();
    return true;
}

void TabBarController::viewWillAppear() {
    onShow_ = true;
    showSelected();
}

void TabBarController::showSelected() {
    if (!onShow_)
        return;
    const auto coming = selectedViewController();
    const auto leaving = std::exchange(shown_, coming);
    if (coming)
        coming->loadViewIfNeeded();
    // Observers learn of the new screen before its appearance moves its controls.
    changed_.emit();
    if (coming == leaving)
        return;
    if (coming)
        coming->viewWillAppear();
    if (leaving)
        leaving->viewWillDisappear();
}

} // namespace lumbra

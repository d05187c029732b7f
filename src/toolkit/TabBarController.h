#pragma once

#include "toolkit/Signal.h"
#include "toolkit/ViewController.h"

#include <functional>
#include <memory>
#include <vector>

namespace lumbra {

/// Holds screens as tabs and shows one of them. Main thread only.
///
/// A screen that is shown is first loaded if necessary and told that it will appear; then the previous screen
/// is told that it will disappear. Before the tab controller itself appears, no screen is told anything.
class TabBarController : public ViewController {
public:
    TabBarController();

    const std::vector<std::shared_ptr<ViewController>>& viewControllers() const { return controllers_; }
    /// Replaces the tabs. The selected position stays; if it no longer exists, the last tab is selected.
    void setViewControllers(std::vector<std::shared_ptr<ViewController>> controllers);

    int selectedIndex() const { return selected_; }
    /// Null while there are no tabs.
    std::shared_ptr<ViewController> selectedViewController() const;
    /// Selects a tab without storing the choice. A position that does not exist is ignored.
    void setSelectedIndex(int index);

    /// The user selects a tab, which may be selected already. False if there is no such tab.
    bool selectByUser(int index);

    /// Calls `observer` when this controller appears, and when the tabs or the current screen change while it
    /// is visible.
    Subscription onScreenChange(std::function<void()> observer) {
        return changed_.subscribe(std::move(observer));
    }

    void viewWillAppear() override;

protected:
    /// Called after the user has selected a tab, which is the current one now.
    virtual void didSelectViewController() {}

private:
    bool has(int index) const { return index >= 0 && index < static_cast<int>(controllers_.size()); }
    void showSelected();

    std::vector<std::shared_ptr<ViewController>> controllers_;
    std::shared_ptr<ViewController> shown_;
    int selected_ = 0;
    bool onShow_ = false;
    Signal<> changed_;
};

} // namespace lumbra

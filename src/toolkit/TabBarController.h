#pragma once

#include "toolkit/Signal.h"
#include "toolkit/ViewController.h"

#include <functional>
#include <memory>
#include <vector>

namespace lumbra {

/// Holds screens as tabs and shows one of them. Main thread only.
///
/// A screen that comes on show is loaded if it is not, then told that it will appear; then the one that it replaces is
/// told that it will disappear. While the tab controller itself is not on show, no screen is told anything.
class TabBarController : public ViewController {
public:
    TabBarController();

    const std::vector<std::shared_ptr<ViewController>>& viewControllers() const { return controllers_; }
    /// Replaces the tabs. The selected position stays, or becomes the last one where it no longer exists.
    void setViewControllers(std::vector<std::shared_ptr<ViewController>> controllers);

    int selectedIndex() const { return selected_; }
    /// Null while there are no tabs.
    std::shared_ptr<ViewController> selectedViewController() const;
    /// Selects a tab for the program. A position that does not exist changes nothing.
    void setSelectedIndex(int index);

    /// A hand selects a tab, which may be on show already. False where there is no such tab.
    bool selectByUser(int index);

    /// Calls `observer` whenever the tabs or the screen on show have changed while this controller is on
    /// show, and when it comes on show.
    Subscription onScreenChange(std::function<void()> observer) {
        return changed_.subscribe(std::move(observer));
    }

    void viewWillAppear() override;
    void viewWillDisappear() override;

protected:
    /// A hand has selected the tab that is on show now.
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

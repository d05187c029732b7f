#pragma once

#include "toolkit/View.h"

#include <memory>
#include <utility>

namespace lumbra {

/// Controls one screen's view. Always owned by a shared pointer. Main thread only.
class ViewController : public std::enable_shared_from_this<ViewController> {
public:
    explicit ViewController(std::shared_ptr<View> view) : view_(std::move(view)) {}
    virtual ~ViewController() = default;
    ViewController(const ViewController&) = delete;
    ViewController& operator=(const ViewController&) = delete;

    const View& view() const { return *view_; }

    /// Called once, before the first appearance.
    virtual void viewDidLoad() {}
    /// The view is about to be shown.
    virtual void viewWillAppear() {}
    /// The view is about to be hidden.
    virtual void viewWillDisappear() {}

    /// Calls `viewDidLoad` unless that has been done.
    void loadViewIfNeeded() {
        if (!std::exchange(loaded_, true))
            viewDidLoad();
    }

protected:
    /// A shared pointer to `self` with its own type, for targets and delegates.
    template <class Self>
    static std::shared_ptr<Self> shared(Self* self) {
        return std::static_pointer_cast<Self>(self->shared_from_this());
    }

private:
    std::shared_ptr<View> view_;
    bool loaded_ = false;
};

} // namespace lumbra

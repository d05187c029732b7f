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

    /// Once, before the first appearance.
    virtual void viewDidLoad() {}
    /// About to be shown.
    virtual void viewWillAppear() {}
    /// About to be hidden.
    virtual void viewWillDisappear() {}

    /// Runs `viewDidLoad` unless it has run.
    void loadViewIfNeeded() {
        if (!std::exchange(loaded_, true))
            viewDidLoad();
    }

protected:
    /// This controller as the type it is, for targets and delegates that must not keep it alive.
    template <class Self>
    static std::shared_ptr<Self> shared(Self* self) {
        return std::static_pointer_cast<Self>(self->shared_from_this());
    }

private:
    std::shared_ptr<View> view_;
    bool loaded_ = false;
};

} // namespace lumbra

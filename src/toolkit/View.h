#pragma once

#include "toolkit/Control.h"

#include <cassert>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace lumbra {

/// A reference to a control that does not own it. It is empty once the control is destroyed.
template <class T>
class Outlet {
public:
    Outlet() = default;
    Outlet(const std::shared_ptr<T>& control) : control_(control) {}

    std::shared_ptr<T> lock() const { return control_.lock(); }
    /// The control, which must still exist.
    std::shared_ptr<T> operator->() const {
        auto control = control_.lock();
        assert(control && "the outlet's control is gone");
        return control;
    }
    bool is(const Control& control) const { return control_.lock().get() == &control; }

private:
    std::weak_ptr<T> control_;
};

/// The controls of one screen, in the order in which they are shown. It owns them.
class View {
public:
    struct Item {
        std::string name;    ///< the outlet's name, unique on the screen
        std::string caption; ///< the text beside the control; may be empty
        std::shared_ptr<Control> control;
        bool sends; ///< operating it sends a command; false: it only chooses what is shown
    };

    View(std::string name, std::string title) : name_(std::move(name)), title_(std::move(title)) {}

    /// The screen's short name, as scripts use it ("zone").
    const std::string& name() const { return name_; }
    /// The screen's title ("Zones").
    const std::string& title() const { return title_; }
    const std::vector<Item>& items() const { return items_; }

    void add(Item item) { items_.push_back(std::move(item)); }

    /// The control with that name, or null.
    std::shared_ptr<Control> find(std::string_view name) const {
        for (const auto& item : items_)
            if (item.name == name)
                return item.control;
        return nullptr;
    }
    /// The control with that name, which must exist and be of type T.
    template <class T>
    Outlet<T> outlet(std::string_view name) const {
        auto control = std::dynamic_pointer_cast<T>(find(name));
        assert(control && "the layout lacks a control that the screen needs");
        return control;
    }

private:
    std::string name_;
    std::string title_;
    std::vector<Item> items_;
};

} // namespace lumbra

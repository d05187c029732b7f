#pragma once

#include "toolkit/ActivityIndicator.h"
#include "toolkit/Button.h"
#include "toolkit/Label.h"
#include "toolkit/Picker.h"
#include "toolkit/SegmentedControl.h"
#include "toolkit/Slider.h"
#include "toolkit/Switch.h"

#include <cstdlib>
#include <functional>
#include <string_view>
#include <type_traits>

namespace lumbra {

/// A kind of control in words, without an article: "slider".
constexpr std::string_view nameOf(Control::Kind kind) {
    switch (kind) {
    case Control::Kind::Picker:
        return "picker";
    case Control::Kind::Slider:
        return "slider";
    case Control::Kind::Switch:
        return "switch";
    case Control::Kind::Segmented:
        return "segmented control";
    case Control::Kind::Label:
        return "label";
    case Control::Kind::ActivityIndicator:
        return "activity indicator";
    case Control::Kind::Button:
        return "button";
    }
    return {};
}

/// Several function objects as one set of overloads.
template <class... Functions>
struct Overloads : Functions... {
    using Functions::operator()...;
};
template <class... Functions>
Overloads(Functions...) -> Overloads<Functions...>;

/// Calls `function` with `control` as what it is (`Picker&`, `const Slider&` ...). It must take every kind, so that a
/// kind that was forgotten does not compile.
template <class AnyControl, class Function>
decltype(auto) visit(AnyControl& control, Function&& function) {
    const auto as = [&]<class Type>(std::type_identity<Type>) -> decltype(auto) {
        using Exact = std::conditional_t<std::is_const_v<AnyControl>, const Type, Type>;
        return std::invoke(function, static_cast<Exact&>(control));
    };
    switch (control.kind()) {
    case Picker::KIND:
        return as(std::type_identity<Picker>());
    case Slider::KIND:
        return as(std::type_identity<Slider>());
    case Switch::KIND:
        return as(std::type_identity<Switch>());
    case SegmentedControl::KIND:
        return as(std::type_identity<SegmentedControl>());
    case Label::KIND:
        return as(std::type_identity<Label>());
    case ActivityIndicator::KIND:
        return as(std::type_identity<ActivityIndicator>());
    case Button::KIND:
        return as(std::type_identity<Button>());
    }
    std::abort(); // every control is of one of the kinds
}

} // namespace lumbra

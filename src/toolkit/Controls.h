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

/// The name of a kind of control, without an article: "slider".
constexpr std::string_view nameOf(Control::Kind kind) {
    constexpr std::string_view NAMES[] = {
        "picker", "slider", "switch", "segmented control", "label", "activity indicator", "button"};
    return NAMES[static_cast<std::size_t>(kind)];
}

/// A set of function objects as one overload set.
template <class... Functions>
struct Overloads : Functions... {
    using Functions::operator()...;
};
template <class... Functions>
Overloads(Functions...) -> Overloads<Functions...>;

/// Calls `function` with `control` as its concrete type (`Picker&`, `const Slider&` ...). `function` must
/// accept every kind: a forgotten one does not compile.
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
    std::abort(); // there are no other kinds
}

} // namespace lumbra

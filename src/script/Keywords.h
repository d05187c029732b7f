#pragma once

#include "app/Application.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace lumbra::script {

// The keywords of arguments. The commands parse them, completion offers them.

constexpr std::array<std::string_view, 3> SWITCH_POSITIONS{"on", "off", "toggle"};
constexpr std::array<std::string_view, 2> WATCHING{"on", "off"};
constexpr std::array<std::string_view, 4> AWAITED{"current", "answer", "open", "closed"};
constexpr std::array<std::string_view, 2> FLAGS{"true", "false"};

struct LifecycleEvent {
    std::string_view name;
    std::array<void (Application::*)(), 2> steps; ///< the second may be null
};
constexpr std::array<LifecycleEvent, 6> LIFECYCLE_EVENTS{{
    {"resign-active", {&Application::resignActive}},
    {"enter-background", {&Application::enterBackground}},
    {"enter-foreground", {&Application::enterForeground}},
    {"become-active", {&Application::becomeActive}},
    {"away", {&Application::resignActive, &Application::enterBackground}},
    {"back", {&Application::enterForeground, &Application::becomeActive}},
}};

template <std::size_t COUNT>
constexpr bool contains(const std::array<std::string_view, COUNT>& words, std::string_view word) {
    return std::find(words.begin(), words.end(), word) != words.end();
}

} // namespace lumbra::script

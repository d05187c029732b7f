#pragma once

#include "toolkit/Text.h"

#include <cstdint>

namespace lumbra {

/// How things stand with the unit, as people are told: the state of the link and the status of the screen in one.
enum class Condition : std::uint8_t {
    NotConnected,
    Retrying, ///< not connected; the application will try again without the user
    Connecting,
    Waiting, ///< connected; the unit has not answered yet
    Silent,  ///< connected; the unit does not answer
    Current, ///< connected; the screen shows what the unit has reported
};

/// It in words. `unit` is the number of the unit.
Text textOf(Condition condition, std::int64_t unit);

} // namespace lumbra

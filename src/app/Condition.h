#pragma once

#include "toolkit/Text.h"

#include <cstdint>

namespace lumbra {

/// The state of the link and the status of the screen in one, as people see it.
enum class Condition : std::uint8_t {
    NotConnected,
    Retrying, ///< not connected; the application will try again without the user
    Connecting,
    Waiting, ///< connected; the unit has not answered yet
    Silent,  ///< connected; the unit does not answer
    Current, ///< connected; the screen shows what the unit has reported
};

/// The condition in words. `unit` is the number of the unit.
Text textOf(Condition condition, std::int64_t unit);

} // namespace lumbra

#pragma once

#include "toolkit/Text.h"

#include <optional>
#include <string_view>

namespace lumbra {

/// A name that the application gives to what has none yet ("Zone 3"), as a text to translate; nothing for any other
/// name. Any thread.
std::optional<Text> defaultName(std::string_view name);

} // namespace lumbra

#pragma once

#include "toolkit/Text.h"

#include <optional>
#include <string_view>

namespace lumbra {

/// A hint about an unusual address (UTF-8), as a sentence; nothing if it is a usual one. Any text is accepted as an
/// address. Any thread.
std::optional<Text> addressHint(std::string_view address);

} // namespace lumbra

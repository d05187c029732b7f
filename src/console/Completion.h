#pragma once

#include "app/Application.h"

#include <string>
#include <string_view>
#include <vector>

namespace lumbra::console {

/// The words that may stand where `line` ends, each of which begins with the word that `line` ends with. Main thread
/// only.
std::vector<std::string> completions(Application& application, std::string_view line);

} // namespace lumbra::console

#pragma once

#include "app/Application.h"

#include <string>
#include <string_view>
#include <vector>

namespace lumbra::console {

/// The possible completions of the last word of `line`: whole words that begin with it. Main thread only.
std::vector<std::string> completions(Application& application, std::string_view line);

} // namespace lumbra::console

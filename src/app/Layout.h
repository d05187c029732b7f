#pragma once

#include "toolkit/View.h"

#include <memory>
#include <string_view>

namespace lumbra {

/// Builds the view of the screen of that name ("zone", "output", "group", "override" or "scene") from the
/// stored layout: its controls in the order in which they are shown, with their captions, ranges and first
/// values.
std::shared_ptr<View> buildView(std::string_view screen);

} // namespace lumbra

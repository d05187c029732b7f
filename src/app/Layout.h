#pragma once

#include "toolkit/View.h"

#include <memory>
#include <string_view>

namespace lumbra {

/// Builds the view of a screen ("zone", "output", "group", "override" or "scene") from the stored layout: its
/// controls in display order, with their captions, ranges and initial values. The screen must exist.
std::shared_ptr<View> buildView(std::string_view screen);

} // namespace lumbra

#pragma once

#include "program/Options.h"

namespace lumbra {

/// What the module of the touch screens exports under the name "runTouch": runs them until the window is
/// closed and returns the program's exit status. What is wrong is told on standard error.
using RunTouch = int (*)(int& argc, char** argv, const Options& options);

} // namespace lumbra

#pragma once

#include "program/Options.h"

namespace lumbra {

/// The function that the module of the touch front end exports as "runTouch". It runs the front end until the
/// window is closed and returns the exit status of the program. Errors are reported on standard error. Main
/// thread only.
using RunTouch = int (*)(int& argc, char** argv, const Options& options);

} // namespace lumbra

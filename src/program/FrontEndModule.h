#pragma once

#include "program/Options.h"

namespace lumbra {

/// The function that the module of a front end exports as "runFrontEnd". It runs the front end until its window is
/// closed or a signal ends it, and returns the exit status of the program. Errors are reported on standard error.
/// Main thread only.
using RunFrontEnd = int (*)(int& argc, char** argv, const Options& options);

} // namespace lumbra

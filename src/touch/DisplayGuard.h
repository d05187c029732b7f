#pragma once

#include <QtGlobal>

namespace lumbra {

/// While it lives, the application object of a graphical program may be constructed: where that fails for
/// want of a display, the process ends with exit status 1 and one sentence on standard error that names
/// --console, in place of the toolkit's own lines and its abort. One at a time, before other threads start.
class DisplayGuard {
public:
    DisplayGuard();
    ~DisplayGuard();
    DisplayGuard(const DisplayGuard&) = delete;
    DisplayGuard& operator=(const DisplayGuard&) = delete;

private:
    QtMessageHandler previous_;
};

} // namespace lumbra

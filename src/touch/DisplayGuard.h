#pragma once

#include <QtGlobal>

namespace lumbra {

/// Guards the construction of the application object of a graphical program. If that fails because there is
/// no display, the process ends with exit status 1 and a sentence on standard error that names --console,
/// instead of the toolkit's own message and abort. One at a time, before other threads start.
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

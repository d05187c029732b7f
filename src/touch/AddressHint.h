#pragma once

#include <QString>

namespace lumbra {

/// A hint about an unusual address, as a sentence in the user's language; empty if there is none. Any text is
/// accepted as an address. Main thread only.
QString addressHint(const QString& address);

} // namespace lumbra
